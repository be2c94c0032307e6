#pragma once

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string_view>

// Texts and number fields, each written at a place with room enough.
namespace bench {

inline char* putText(char* out, std::string_view text) {
    std::memcpy(out, text.data(), text.size());
    return out + text.size();
}

inline constexpr std::uint64_t kPowers[] = {1,      10,      100,      1000,     10000,
                                            100000, 1000000, 10000000, 100000000};

// The hundred pairs 00 to 99: two digits are written at a time.
struct DigitPairs {
    char text[200] = {};
    constexpr DigitPairs() {
        for (int i = 0; i < 100; ++i) {
            text[2 * i] = static_cast<char>('0' + i / 10);
            text[2 * i + 1] = static_cast<char>('0' + i % 10);
        }
    }
};
inline constexpr DigitPairs kPairs;

inline char* putPairBefore(char* end, std::uint64_t pair) {
    std::memcpy(end - 2, kPairs.text + 2 * pair, 2);
    return end - 2;
}

// The last Count digits of `number`, before `end`; what stands in front of them stays in `number`.
template <int Count>
char* putDigitsBefore(char* end, std::uint64_t& number) {
    if constexpr (Count % 2 != 0) {
        *--end = static_cast<char>('0' + number % 10);
        number /= 10;
    }
    for (int i = 0; i < Count / 2; ++i, number /= 100) end = putPairBefore(end, number % 100);
    return end;
}

inline void putWholeBefore(char* end, std::uint32_t number) {
    for (; number >= 100; number /= 100) end = putPairBefore(end, number % 100);
    if (number >= 10) {
        putPairBefore(end, number);
    } else {
        end[-1] = static_cast<char>('0' + number);
    }
}

// The value of these bits times 10^Decimals, to the nearest integer, ties to even. The value is 0
// or from 2^-10 to below 2^27.
template <int Decimals>
std::uint64_t scaled(std::uint64_t bits) {
    __extension__ using Wide = unsigned __int128;
    if (bits == 0) return 0;
    const int shift = 1075 - static_cast<int>(bits >> 52);  // the value is mantissa / 2^shift
    const std::uint64_t mantissa = (bits & 0xFFFFFFFFFFFFFU) | std::uint64_t{1} << 52;
    const Wide product = static_cast<Wide>(mantissa) * kPowers[Decimals];
    const std::uint64_t odd = static_cast<std::uint64_t>(product >> shift) & 1;
    const std::uint64_t almostHalf = (std::uint64_t{1} << (shift - 1)) - 1;
    return static_cast<std::uint64_t>((product + almostHalf + odd) >> shift);
}

template <int Width, int Decimals>
char* putFixed(char* out, double value);

// A negative number whose field has a column for the sign.
template <int Width, int Decimals>
char* putNegative(char* out, double value) {
    putFixed<Width, Decimals>(out, -value);
    char* sign = out;
    while (sign[1] == ' ') ++sign;
    *sign = '-';
    return out + Width;
}

// `value` right-justified in Width columns with Decimals (at most 8) digits behind its point.
template <int Width, int Decimals>
char* putFixed(char* out, double value) {
    constexpr int kWhole = Width - 1 - Decimals;  // columns before the point
    constexpr auto kLimit = static_cast<double>(kPowers[kWhole < 8 ? kWhole : 8] - 1);
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    if (bits != 0 && !(value > 0x1p-10 && value < kLimit)) {
        if (value < -0x1p-10 && value > -kLimit / 10)
            return putNegative<Width, Decimals>(out, value);
        char text[Width + 320];
        std::snprintf(text, sizeof text, "%*.*f", Width, Decimals, value);
        return putText(out, {text, Width});
    }
    std::uint64_t number = scaled<Decimals>(bits);
    char* const fraction = putDigitsBefore<Decimals>(out + Width, number);
    fraction[-1] = '.';
    std::memset(out, ' ', kWhole);
    putWholeBefore(fraction - 1, static_cast<std::uint32_t>(number));
    return out + Width;
}

}  // namespace bench
