#pragma once

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "text/number_field.h"

namespace vantelgis {

/// The eight digits of `value`, which is below 10^8, as the bytes of a word, the first one lowest.
/// Halves, quarters and eighths of the word are divided at once by multiplying with the rounded
/// inverse of 10000, 100 and 10, which is exact for so few digits. A quotient is taken from the low
/// part of its lane, and the remainder put above it, by one subtraction.
constexpr std::uint64_t eightDigits(std::uint64_t value) {
    const std::uint64_t thousands = value * 0xD1B71759U >> 45;
    const std::uint64_t halves = (value << 32) - thousands * ((std::uint64_t{10000} << 32) - 1);
    const std::uint64_t hundreds = halves * 10486 >> 20 & 0x0000007F0000007FU;
    const std::uint64_t pairs = (halves << 16) - hundreds * ((100U << 16) - 1);
    const std::uint64_t tens = pairs * 103 >> 10 & 0x000F000F000F000FU;
    return (pairs << 8) - tens * ((10U << 8) - 1);
}

/// A number of at most eight digits before its point, and `Decimals` behind it, as two integers.
struct ScaledNumber {
    std::uint64_t whole;
    std::uint64_t fraction;
};

/// The nearest such number, ties to even. `size` is 0 or from 2^-10 to below 10^8 - 1: its fraction
/// is then a whole number of 2^-62.
template <int Decimals>
ScaledNumber scaledNumber(double size) {
    __extension__ using Wide = unsigned __int128;
    constexpr std::uint64_t kHalf = std::uint64_t{1} << 63;
    const auto whole = static_cast<std::int64_t>(size);
    const auto rest = static_cast<std::int64_t>((size - static_cast<double>(whole)) * 0x1p62);
    const Wide scaled = static_cast<Wide>(rest) * (4 * powerOfTen(Decimals));  // of 2^-64
    const auto below = static_cast<std::uint64_t>(scaled);
    auto fraction = static_cast<std::uint64_t>(scaled >> 64);
    fraction += below + (fraction & 1) > kHalf ? 1U : 0U;
    if (fraction == powerOfTen(Decimals)) return {static_cast<std::uint64_t>(whole) + 1, 0};
    return {static_cast<std::uint64_t>(whole), fraction};
}

/// fixedField with a width and decimals that are known in advance. Values of the usual sizes, with
/// at most eight digits before the point, are composed in two words, which are stored once; all
/// others, and those for whose sign there is no room, go the general way.
template <int Width, int Decimals>
char* fixedField(char* out, double value) {
    static_assert(Decimals >= 1 && Decimals <= 8 && Width > Decimals + 1);
    constexpr int kWhole = Width - 1 - Decimals;  // columns before the point
    constexpr int kDigits = std::min(kWhole, 8);
    constexpr auto kLimit = static_cast<double>(powerOfTen(kDigits) - 1);
    constexpr std::uint64_t kZeros = 0x3030303030303030U;

    const double size = std::fabs(value);
    const bool usual =
        std::bit_cast<std::uint64_t>(value) == 0 || (size >= 0x1p-10 && size < kLimit);
    if (std::endian::native != std::endian::little || !usual)
        return fixedField(out, value, Width, Decimals);
    const ScaledNumber number = scaledNumber<Decimals>(size);
    std::uint64_t whole = eightDigits(number.whole);
    // Leading zeros, but for that of the last place, become blanks: one bit is between them.
    const std::uint64_t firstDigit = whole | std::uint64_t{1} << 56;
    whole = (whole | kZeros) ^ (~firstDigit & (firstDigit - 1) & 0x1010101010101010U);
    if (value < 0) {
        const int blanks = std::countr_zero(firstDigit) / 8;
        if (blanks == 8 - kDigits) return fixedField(out, value, Width, Decimals);
        whole ^= std::uint64_t{' ' ^ '-'} << 8 * (blanks - 1);
    }
    const std::uint64_t fraction = eightDigits(number.fraction) | kZeros;
    const std::uint64_t wholeText = whole >> 8 * (8 - kDigits);
    const std::uint64_t fractionText = fraction >> 8 * (8 - Decimals);
    std::memset(out, ' ', kWhole - kDigits);
    std::memcpy(out + kWhole - kDigits, &wholeText, kDigits);
    out[kWhole] = '.';
    std::memcpy(out + kWhole + 1, &fractionText, Decimals);
    return out + Width;
}

}  // namespace vantelgis
