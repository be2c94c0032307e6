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
/// inverse of 100 and of 10, which is exact for so few digits.
constexpr std::uint64_t eightDigits(std::uint32_t value) {
    const std::uint64_t halves = value / 10000 | std::uint64_t{value % 10000} << 32;
    const std::uint64_t hundreds = halves * 10486 >> 20 & 0x0000007F0000007FU;
    const std::uint64_t pairs = hundreds | (halves - 100 * hundreds) << 16;
    const std::uint64_t tens = pairs * 103 >> 10 & 0x000F000F000F000FU;
    return tens | (pairs - 10 * tens) << 8;
}

/// |value| * 10^Decimals as the nearest integer, ties to even. The bits are those of 0 or of a
/// value from 2^-10 to below 2^27.
template <int Decimals>
constexpr std::uint64_t scaledBits(std::uint64_t bits) {
    __extension__ using Wide = unsigned __int128;
    constexpr std::uint64_t kPower = powerOfTen(Decimals);
    if (bits == 0) return 0;
    const int shift = 1075 - static_cast<int>(bits >> 52);  // the value is mantissa / 2^shift
    const std::uint64_t mantissa = (bits & 0xFFFFFFFFFFFFFU) | std::uint64_t{1} << 52;
    const Wide product = static_cast<Wide>(mantissa) * kPower;
    const auto low = static_cast<std::uint64_t>(product);
    const auto high = static_cast<std::uint64_t>(product >> 64);
    const std::uint64_t whole = low >> shift | high << (64 - shift);  // shift is 26 to 62
    const std::uint64_t half = std::uint64_t{1} << (shift - 1);
    const std::uint64_t rest = low & (2 * half - 1);
    return whole + (rest + (whole & 1) > half ? 1 : 0);
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
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const bool usual = bits == 0 || (size >= 0x1p-10 && size < kLimit);
    if (std::endian::native != std::endian::little || !usual)
        return fixedField(out, value, Width, Decimals);
    const std::uint64_t number = scaledBits<Decimals>(std::bit_cast<std::uint64_t>(size));
    std::uint64_t whole = eightDigits(static_cast<std::uint32_t>(number / powerOfTen(Decimals)));
    // Leading zeros, but for that of the last place, become blanks: one bit is between them.
    const int blanks = std::countr_zero(whole | std::uint64_t{1} << 56) / 8;
    whole = (whole | kZeros) ^ (((std::uint64_t{1} << 8 * blanks) - 1) & 0x1010101010101010U);
    if (value < 0) {
        if (blanks == 8 - kDigits) return fixedField(out, value, Width, Decimals);
        whole ^= std::uint64_t{' ' ^ '-'} << 8 * (blanks - 1);
    }
    const std::uint64_t fraction =
        eightDigits(static_cast<std::uint32_t>(number % powerOfTen(Decimals))) | kZeros;
    const std::uint64_t wholeText = whole >> 8 * (8 - kDigits);
    const std::uint64_t fractionText = fraction >> 8 * (8 - Decimals);
    std::memset(out, ' ', kWhole - kDigits);
    std::memcpy(out + kWhole - kDigits, &wholeText, kDigits);
    out[kWhole] = '.';
    std::memcpy(out + kWhole + 1, &fractionText, Decimals);
    return out + Width;
}

}  // namespace vantelgis
