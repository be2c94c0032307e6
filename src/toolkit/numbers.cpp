#include "toolkit/numbers.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "text/free_format.h"
#include "text/number_field.h"

namespace vantelgis {

namespace {

constexpr int kWidth = 20;
constexpr int kMostDecimals = 19;
constexpr std::string_view kAsterisks = "********************";

// The decimals of values below a limit in size; none at the last limit and above.
template <typename Real>
struct Precision {
    Real below;
    int decimals;
};

constexpr Precision<float> kShortPrecisions[] = {{0.01F, 6}, {0.1F, 5},   {1.0F, 4},
                                                 {10.0F, 3}, {100.0F, 2}, {1000.0F, 1}};

constexpr Precision<double> kLongPrecisions[] = {{1e0, 10}, {1e1, 9}, {1e2, 8}, {1e3, 7}, {1e4, 6},
                                                 {1e5, 5},  {1e6, 4}, {1e7, 3}, {1e8, 2}, {1e9, 1}};

template <typename Real, std::size_t N>
int decimalsOf(Real value, const Precision<Real> (&table)[N]) {
    for (const Precision<Real>& row : table)
        if (std::fabs(value) < row.below) return row.decimals;
    return 0;
}

std::string_view withoutTrailingZeros(std::string_view s) {
    while (s.back() == '0') s.remove_suffix(1);
    return s;
}

// The days in front of each month. They are not those of the calendar everywhere; day numbers that
// were written before must stay comparable.
constexpr std::int32_t kDaysBefore[12] = {0, 28, 59, 89, 120, 150, 181, 212, 242, 273, 303, 334};
constexpr std::int32_t kMonths = 12;
constexpr std::int32_t kFebruary = 2;
constexpr std::int32_t kLastDayOfFebruary = 28;
constexpr std::int32_t kDaysOfYear = 365;
constexpr std::int32_t kDaysBefore2000 = 2000 * kDaysOfYear;

bool takeWhole(std::string_view text, std::int32_t& value) {
    FreeFormat list(text);
    return takeInteger(list, value) == Item::value && withoutTrailingBlanks(list.rest()).empty();
}

}  // namespace

void AINTEGER(TextRef out, std::int32_t value) {
    AINTEGER8(out, value);
}

void AINTEGER8(TextRef out, std::int64_t value) {
    out.assign(IntegerText(value));
}

void AINTEGERPREC0(TextRef out, std::int32_t value, std::int32_t digits) {
    AINTEGER8PREC0(out, value, digits);
}

void AINTEGER8PREC0(TextRef out, std::int64_t value, std::int32_t digits) {
    out.assign(ZeroPaddedText(value, digits));
}

void AREAL(TextRef out, float value) {
    const FixedText field(value, kWidth, decimalsOf(value, kShortPrecisions));
    out.assign(withoutTrailingZeros(withoutLeadingBlanks(field)));
}

void AREAL8(TextRef out, double value) {
    const FixedText field(value, kWidth, decimalsOf(value, kLongPrecisions));
    out.assign(withoutTrailingZeros(withoutLeadingBlanks(field)));
}

void AREALD(TextRef out, float value, std::int32_t decimals) {
    AREALD8(out, value, decimals);
}

void AREALD8(TextRef out, double value, std::int32_t decimals) {
    if (decimals > kMostDecimals) return out.assign(kAsterisks);
    out.assign(withoutLeadingBlanks(FixedText(value, kWidth, std::max(decimals, 0))));
}

std::int32_t NUMBEROFDAYS(std::string_view date) {
    constexpr std::size_t kDayPlace = 6;
    if (date.size() <= kDayPlace) return -1;  // trailing blanks, and so the day's second, may lack
    std::int32_t year;
    std::int32_t month;
    std::int32_t day;
    if (!takeWhole(date.substr(0, 4), year) || !takeWhole(date.substr(4, 2), month) ||
        !takeWhole(date.substr(kDayPlace, 2), day))
        return -1;
    if (month < 1 || month > kMonths) return -1;
    if (month == kFebruary) day = std::min(day, kLastDayOfFebruary);
    return year * kDaysOfYear + kDaysBefore[month - 1] + day - kDaysBefore2000;
}

bool CHECKINT(std::string_view text, std::int32_t& value) {
    FreeFormat list(text);
    return takeInteger(list, value) == Item::value;
}

bool CHECKINT4(std::string_view text, std::int32_t& value) {
    return CHECKINT(text, value);
}

bool CHECKINT8(std::string_view text, std::int64_t& value) {
    FreeFormat list(text);
    return takeInteger(list, value) == Item::value;
}

}  // namespace vantelgis
