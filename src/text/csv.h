#pragma once

#include <cstdint>
#include <string_view>

namespace vantelgis {

// Lines of fields between commas; quotes mean nothing here. Fields count from 1. Lines are cut at
// kLineCapacity.

extern "C" {

/// The number of the first field that is the same as `name` by ASAME, `fallback` if there is none.
std::int32_t CSVCOLUMN(std::string_view line, std::string_view name, std::int32_t fallback);

/// The number in field `column`. A field that is missing or blank, or that is not one number as a
/// whole, gives 0 and false.
bool CSVVALUE(std::string_view line, std::int32_t column, float& value);

}  // extern "C"

}  // namespace vantelgis
