#pragma once

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>

// Numbers in text. The text ends behind a number with a character that is no part of it.
namespace bench {

inline constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                          1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                          1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// Gathers the digits at `p` behind those in `mantissa`; gives the place behind them.
inline const char* gatherDigits(const char* p, std::uint64_t& mantissa) {
    std::uint64_t gathered = mantissa;
    std::uint64_t digit;
    while ((digit = std::uint64_t{static_cast<unsigned char>(*p)} - '0') <= 9) {
        gathered = gathered * 10 + digit;
        ++p;
    }
    mantissa = gathered;
    return p;
}

// Reads the number at `p`, which begins with a digit, a sign or a point; gives the place behind it.
// The digits make an integer, and one division by a power of ten rounds as the exact value does
// while both are exact; all other numbers go the long way.
template <typename Real>
const char* readReal(const char* p, Real& value) {
    constexpr std::uint64_t kLargest = std::uint64_t{1} << std::numeric_limits<Real>::digits;
    constexpr std::ptrdiff_t kLongestNumber = 64;
    constexpr std::ptrdiff_t kMostDigits = std::is_same_v<Real, double> ? 18 : 10;
    const char* const start = p;
    const bool negative = *p == '-';
    if (negative) ++p;
    std::uint64_t mantissa = 0;
    const char* const first = p;
    p = gatherDigits(p, mantissa);
    std::ptrdiff_t decimals = 0;
    std::ptrdiff_t digits = p - first;
    if (*p == '.') {
        const char* const point = ++p;
        p = gatherDigits(p, mantissa);
        decimals = p - point;
        digits += decimals;
    }
    if (digits == 0 || digits > kMostDigits || mantissa > kLargest || (*p | 0x20) == 'e')
        return std::from_chars(start, start + kLongestNumber, value).ptr;
    value = static_cast<Real>(mantissa) / static_cast<Real>(kPowersOfTen[decimals]);
    if (negative) value = -value;
    return p;
}

inline const char* readCount(const char* p, std::int32_t& count) {
    std::uint64_t value = 0;
    p = gatherDigits(p, value);
    count = static_cast<std::int32_t>(value);
    return p;
}

}  // namespace bench
