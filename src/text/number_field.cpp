#include "text/number_field.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "text/joined.h"

namespace vantelgis {

namespace {

__extension__ using Wide = unsigned __int128;

constexpr int kMostDigits = 20;

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

// The integer nearest to |value| * power, which is below 2^63; ties to even.
std::uint64_t scaledToNearest(std::uint64_t bits, std::uint64_t power) {
    const int biased = static_cast<int>(bits >> 52 & 0x7FF);
    std::uint64_t mantissa = bits & ((std::uint64_t{1} << 52) - 1);
    if (biased != 0) mantissa |= std::uint64_t{1} << 52;
    const int shift = 1075 - (biased != 0 ? biased : 1);  // |value| = mantissa / 2^shift
    const Wide scaled = static_cast<Wide>(mantissa) * power;
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
    const std::uint64_t power = powerOfTen(decimals);
    if (!(std::fabs(value) * static_cast<double>(power) < kLimit / 2))
        return largeField(out, value, width, decimals);

    const auto bits = std::bit_cast<std::uint64_t>(value);
    const std::uint64_t scaled = scaledToNearest(bits, power);
    const ZeroPaddedText text(static_cast<std::int64_t>(scaled), decimals + 1);
    const std::string_view digits = text;
    const std::string_view sign = bits >> 63 != 0 ? "-" : "";
    std::string_view whole = digits.substr(0, digits.size() - static_cast<std::size_t>(decimals));
    const std::string_view fraction = digits.substr(whole.size());
    const bool oneShort = sign.size() + digits.size() == static_cast<std::size_t>(width);
    if (oneShort && scaled < power && decimals > 0) whole = {};  // the zero gives way
    return rightJustified(out, width, Joined<kMaxFieldWidth>(sign, whole, ".", fraction));
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
