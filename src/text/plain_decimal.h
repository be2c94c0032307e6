#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

namespace vantelgis {

/// What ends an item of a free-format list.
constexpr bool endsItem(char c) {
    return c == ' ' || c == ',' || c == '/';
}

/// The powers of ten that a number of that width holds exactly; within them one division rounds
/// correctly.
template <typename Real>
inline constexpr Real kExactPowers[] = {};
template <>
inline constexpr double kExactPowers<double>[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,
                                                  1e7,  1e8,  1e9,  1e10, 1e11, 1e12, 1e13,
                                                  1e14, 1e15, 1e16, 1e17, 1e18};
template <>
inline constexpr float kExactPowers<float>[] = {1e0F, 1e1F, 1e2F, 1e3F, 1e4F, 1e5F,
                                                1e6F, 1e7F, 1e8F, 1e9F, 1e10F};

/// Adds the digits from `p` on to `mantissa`; gives the place behind them. Where something else
/// than a digit is known to follow, `end` is std::unreachable_sentinel.
template <typename End>
const char* gatherDigits(const char* p, End end, std::uint64_t& mantissa) {
    std::uint64_t gathered = mantissa;
    for (; p != end; ++p) {
        const std::uint64_t digit = std::uint64_t{static_cast<unsigned char>(*p)} - '0';
        if (digit > 9) break;
        gathered = gathered * 10 + digit;
    }
    mantissa = gathered;
    return p;
}

/// Reads "[-+]digits[.digits]" from `p`, which is in front of `end`, where the digits are an
/// integer that Real holds exactly: one exact division then gives the nearest value. Returns the
/// place behind it, which is `end` or one that `Ends` is true of, or null, with `target` as it was,
/// when something else stands there. `end` is as for gatherDigits.
template <bool (*Ends)(char), typename Real, typename End>
const char* takePlainDecimal(const char* p, End end, Real& target) {
    constexpr std::uint64_t kLargest = std::uint64_t{1} << std::numeric_limits<Real>::digits;
    constexpr std::ptrdiff_t kMostDigits = sizeof(kExactPowers<Real>) / sizeof(Real) - 1;

    const bool negative = *p == '-';
    if (negative || *p == '+') ++p;
    std::uint64_t mantissa = 0;
    const char* const first = p;
    p = gatherDigits(p, end, mantissa);
    std::ptrdiff_t digits = p - first;
    std::ptrdiff_t decimals = 0;
    if (p != end && *p == '.') {
        const char* const point = ++p;
        p = gatherDigits(p, end, mantissa);
        decimals = p - point;
        digits += decimals;
    }
    if (digits == 0 || digits > kMostDigits || mantissa > kLargest) return nullptr;
    if (p != end && !Ends(*p)) return nullptr;
    const Real value = static_cast<Real>(mantissa) / kExactPowers<Real>[decimals];
    target = negative ? -value : value;
    return p;
}

}  // namespace vantelgis
