#include "toolkit/numbers.h"

#include <algorithm>

#include "text/free_format.h"
#include "text/text.h"

namespace vantelgis {

namespace {

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
