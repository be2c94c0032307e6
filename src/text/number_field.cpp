#include "text/number_field.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace vantelgis {

namespace {

__extension__ using Wide = unsigned __int128;

constexpr int kMaxDecimals = 19;
constexpr int kMostDigits = 20;
struct PowersOfTen {
    std::uint64_t of[kMaxDecimals + 1] = {1};
    constexpr PowersOfTen() {
        for (int i = 1; i <= kMaxDecimals; ++i) of[i] = of[i - 1] * 10;
    }
};
constexpr PowersOfTen kPowersOfTen;

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

constexpr int kDigits = 24;  // of the widest 64-bit number, with leading zeros
constexpr std::uint64_t kTenTo8 = 100'000'000;

void writePair(char* out, std::uint32_t value) {
    std::memcpy(out, kPairs.text + 2 * value, 2);
}

void writeEightDigits(char* out, std::uint32_t value) {
    const std::uint32_t high = value / 10000;
    const std::uint32_t low = value % 10000;
    writePair(out, high / 100);
    writePair(out + 2, high % 100);
    writePair(out + 4, low / 100);
    writePair(out + 6, low % 100);
}

// Writes kDigits digits: divisions by constants, and none that waits for all the others.
void writeDigits(char* out, std::uint64_t value) {
    const std::uint64_t high = value / kTenTo8;
    writeEightDigits(out + 16, static_cast<std::uint32_t>(value % kTenTo8));
    writeEightDigits(out + 8, static_cast<std::uint32_t>(high % kTenTo8));
    writeEightDigits(out, static_cast<std::uint32_t>(high / kTenTo8));
}

// How many digits `value` has without leading zeros, at least 1.
int countDigits(std::uint64_t value) {
    const int bits = static_cast<int>(std::bit_width(value | 1));
    const int atLeast = bits * 1233 >> 12;  // times the logarithm of 2
    return atLeast + (value >= kPowersOfTen.of[atLeast] ? 1 : 0) + (value == 0 ? 1 : 0);
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

template <typename Rest>
std::uint64_t roundToEven(std::uint64_t whole, Rest rest, Rest half) {
    return rest > half || (rest == half && (whole & 1) != 0) ? whole + 1 : whole;
}

// The integer nearest to |value| * 10^decimals, which is below 2^63; ties to even.
std::uint64_t scaledToNearest(std::uint64_t bits, int decimals) {
    const int biased = static_cast<int>(bits >> 52 & 0x7FF);
    std::uint64_t mantissa = bits & ((std::uint64_t{1} << 52) - 1);
    if (biased != 0) mantissa |= std::uint64_t{1} << 52;
    const int shift = 1075 - (biased != 0 ? biased : 1);  // |value| = mantissa / 2^shift
    const Wide scaled = static_cast<Wide>(mantissa) * kPowersOfTen.of[decimals];
    if (shift <= 0) return static_cast<std::uint64_t>(scaled << -shift);
    if (shift >= 127) return 0;  // scaled is below 2^117, less than half a unit
    if (shift < 64) {
        const auto low = static_cast<std::uint64_t>(scaled);
        const std::uint64_t half = std::uint64_t{1} << (shift - 1);
        return roundToEven(static_cast<std::uint64_t>(scaled >> shift), low & (2 * half - 1), half);
    }
    const Wide half = static_cast<Wide>(1) << (shift - 1);
    return roundToEven(static_cast<std::uint64_t>(scaled >> shift), scaled & (2 * half - 1), half);
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
    if (!(std::fabs(value) * static_cast<double>(kPowersOfTen.of[decimals]) < kLimit / 2))
        return largeField(out, value, width, decimals);

    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    const std::uint64_t scaled = scaledToNearest(bits, decimals);
    const bool negative = bits >> 63 != 0;

    const int wholeDigits = std::max(countDigits(scaled) - decimals, 1);
    int length = (negative ? 1 : 0) + wholeDigits + 1 + decimals;
    if (length == width + 1 && scaled < kPowersOfTen.of[decimals] && decimals > 0)
        --length;  // the zero before the point gives way
    if (length > width) return asterisks(out, width);

    // All copies are of fixed size, which costs a few moves; what they carry too far to the left is
    // overwritten by what follows.
    char digits[3 * kDigits];
    writeDigits(digits + kDigits, scaled);
    const char* const point = digits + 2 * kDigits - decimals;  // where the point belongs
    char text[2 * kMaxFieldWidth + kDigits];
    char* const end = text + 2 * kMaxFieldWidth;
    std::memcpy(end - decimals, point, kDigits);
    end[-decimals - 1] = '.';
    std::memcpy(end - decimals - 1 - kDigits, point - kDigits, kDigits);
    char* const begin = end - length;
    std::memset(begin - kMaxFieldWidth, ' ', kMaxFieldWidth);
    if (negative) *begin = '-';
    std::memcpy(out, end - width, static_cast<std::size_t>(width));
    return out + width;
}

char* integerField(char* out, std::int64_t value, int width) {
    return rightJustified(out, width, IntegerText(value));
}

IntegerText::IntegerText(std::int64_t value) {
    end(std::to_chars(text_, text_ + sizeof text_, value).ptr);
}

ZeroPaddedText::ZeroPaddedText(std::int64_t value, int digits) {
    const IntegerText shortest(value);
    const std::string_view text = shortest;
    const auto wanted = static_cast<std::size_t>(std::clamp(digits, 1, kMostDigits));
    const std::size_t zeros = value < 0 || text.size() > wanted ? 0 : wanted - text.size();
    std::memset(text_, '0', zeros);
    std::memcpy(text_ + zeros, text.data(), text.size());
    end(text_ + zeros + text.size());
}

}  // namespace vantelgis
