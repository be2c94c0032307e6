#pragma once

#include <cstdint>
#include <string_view>

#include "text/text.h"

namespace vantelgis {

// Values of lines that hold either `keyword = value` or plain fields between commas. Each routine
// takes the line twice, in its original case and in lower case. When `keyword` occurs in the line
// the value stands behind the "=" that follows it; without an "=" the run stops. Otherwise the
// value is field `column` (from 1); none if `column` is below 1. Commas inside quotes separate
// nothing. Lines are cut at kLineCapacity.

extern "C" {

/// The value without its quotes and leading blanks, blank if there is none.
void EXTRACTSTRING(TextRef out, std::string_view line, std::string_view lowerLine,
                   std::string_view keyword, std::int32_t column);

/// The same, but the value runs on to the end of the line.
void EXTRACTSTRINGREM(TextRef out, std::string_view line, std::string_view lowerLine,
                      std::string_view keyword, std::int32_t column);

/// The value as a number in free format, `fallback` if there is none. A value that does not convert
/// is reported and stops the run.
std::int32_t EXTRACTINTEGER(std::string_view line, std::string_view lowerLine,
                            std::string_view keyword, std::int32_t column, std::int32_t fallback);
float EXTRACTREAL(std::string_view line, std::string_view lowerLine, std::string_view keyword,
                  std::int32_t column, float fallback);

}  // extern "C"

}  // namespace vantelgis
