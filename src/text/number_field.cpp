#include "text/number_field.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace vantelgis {

namespace {

__extension__ using Wide = unsigned __int128;

constexpr int kMaxDecimals = 19;
constexpr std::uint64_t kPowersOfTen[kMaxDecimals + 1] = {1,
                                                          10,
                                                          100,
                                                          1000,
                                                          10000,
                                                          100000,
                                                          1000000,
                                                          10000000,
                                                          100000000,
                                                          1000000000,
                                                          10000000000,
                                                          100000000000,
                                                          1000000000000,
                                                          10000000000000,
                                                          100000000000000,
                                                          1000000000000000,
                                                          10000000000000000,
                                                          100000000000000000,
                                                          1000000000000000000,
                                                          10000000000000000000U};

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
constexpr DigitPairs kPairs;

// Writes the digits of `value` so that the last one stands before `end`; returns the first.
char* digitsBefore(char* end, std::uint64_t value) {
    while (value >= 100) {
        end -= 2;
        std::memcpy(end, kPairs.text + 2 * (value % 100), 2);
        value /= 100;
    }
    if (value >= 10) {
        end -= 2;
        std::memcpy(end, kPairs.text + 2 * value, 2);
        return end;
    }
    *--end = static_cast<char>('0' + value);
    return end;
}

// The same with leading zeros, exactly `count` digits.
char* paddedDigitsBefore(char* end, std::uint64_t value, int count) {
    for (; count >= 2; count -= 2) {
        end -= 2;
        std::memcpy(end, kPairs.text + 2 * (value % 100), 2);
        value /= 100;
    }
    if (count > 0) *--end = static_cast<char>('0' + value % 10);
    return end;
}

char* asterisks(char* out, int width) {
    std::memset(out, '*', static_cast<std::size_t>(width));
    return out + width;
}

// Puts a finished text into the field.
char* rightJustified(char* out, int width, std::string_view text) {
    const int length = static_cast<int>(text.size());
    if (length > width) return asterisks(out, width);
    std::memset(out, ' ', static_cast<std::size_t>(width - length));
    std::memcpy(out + (width - length), text.data(), text.size());
    return out + width;
}

// Splits |value| * 10^decimals, below 2^63, into the nearest integer, ties to even.
std::uint64_t scaledToNearest(std::uint64_t bits, int decimals) {
    const int biased = static_cast<int>(bits >> 52 & 0x7FF);
    std::uint64_t mantissa = bits & ((std::uint64_t{1} << 52) - 1);
    if (biased != 0) mantissa |= std::uint64_t{1} << 52;
    const int shift = 1075 - (biased != 0 ? biased : 1);  // |value| = mantissa / 2^shift
    const Wide scaled = static_cast<Wide>(mantissa) * kPowersOfTen[decimals];
    if (shift <= 0) return static_cast<std::uint64_t>(scaled << -shift);
    if (shift >= 127) return 0;  // scaled is below 2^117, less than half a unit
    const Wide whole = scaled >> shift;
    const Wide rest = scaled - (whole << shift);
    const Wide half = static_cast<Wide>(1) << (shift - 1);
    const auto result = static_cast<std::uint64_t>(whole);
    return rest > half || (rest == half && (result & 1) != 0) ? result + 1 : result;
}

// Values of any size, by the general algorithm.
char* largeField(char* out, double value, int width, int decimals) {
    // What needs more digits before the point than there are columns can't fit.
    if (!(std::fabs(value) < 1e64)) return asterisks(out, width);
    char text[96];
    char* end =
        std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, decimals).ptr;
    if (decimals == 0) *end++ = '.';
    char* begin = text;
    char* const firstDigit = text + (text[0] == '-' ? 1 : 0);
    if (end - begin == width + 1 && *firstDigit == '0') {  // the zero before the point gives way
        *firstDigit = '-';
        ++begin;
    }
    return rightJustified(out, width, {begin, static_cast<std::size_t>(end - begin)});
}

}  // namespace

char* fixedField(char* out, double value, int width, int decimals) {
    if (!std::isfinite(value)) {
        const char* word = std::isnan(value) ? "NaN" : value > 0 ? "Infinity" : "-Infinity";
        return rightJustified(out, width, word);
    }
    constexpr double kLimit = 9223372036854775808.0;  // 2^63
    if (!(std::fabs(value) * static_cast<double>(kPowersOfTen[decimals]) < kLimit / 2))
        return largeField(out, value, width, decimals);

    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    const std::uint64_t scaled = scaledToNearest(bits, decimals);
    const bool negative = bits >> 63 != 0;

    // Longest text: 19 digits, or a zero and 19 decimals, the point and a minus.
    char text[24];
    char* const end = text + sizeof text;
    const std::uint64_t power = kPowersOfTen[decimals];
    const std::uint64_t whole = scaled / power;
    char* begin = paddedDigitsBefore(end, scaled - whole * power, decimals);
    *--begin = '.';
    if (whole != 0 || decimals == 0 || width > decimals + 1 + (negative ? 1 : 0))
        begin = digitsBefore(begin, whole);
    if (negative) *--begin = '-';
    return rightJustified(out, width, {begin, static_cast<std::size_t>(end - begin)});
}

char* integerField(char* out, std::int64_t value, int width) {
    return rightJustified(out, width, IntegerText(value));
}

IntegerText::IntegerText(std::int64_t value)
    : length_(static_cast<std::size_t>(std::to_chars(text_, text_ + sizeof text_, value).ptr -
                                       text_)) {}

}  // namespace vantelgis
