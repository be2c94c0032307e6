#pragma once

#include <cstdint>
#include <string_view>

namespace vantelgis {

extern "C" {

/// A number of days that grows with the date `date`, given as yyyymmdd: years have 365 days and no
/// leap day, and 1 January 2000 is day 1. -1 if a part of it is no integer or the month is not one
/// of 1 to 12.
std::int32_t NUMBEROFDAYS(std::string_view date);

/// True when the first item of `text` in free format is an integer of that size, which is then put
/// into `value`.
bool CHECKINT(std::string_view text, std::int32_t& value);
bool CHECKINT4(std::string_view text, std::int32_t& value);
bool CHECKINT8(std::string_view text, std::int64_t& value);

}  // extern "C"

}  // namespace vantelgis
