#pragma once

#include <cstdint>
#include <string_view>

#include "text/text.h"

namespace vantelgis {

// Numbers as short texts without leading blanks. All are edited in a field of 20 columns; what does
// not fit in it is 20 asterisks, and what does not fit in `out` is cut.

extern "C" {

/// An integer in its shortest form.
void AINTEGER(TextRef out, std::int32_t value);
void AINTEGER8(TextRef out, std::int64_t value);

/// The same; a value of 0 or more gets leading zeros up to `digits` digits, which are held between
/// 1 and 20.
void AINTEGERPREC0(TextRef out, std::int32_t value, std::int32_t digits);
void AINTEGER8PREC0(TextRef out, std::int64_t value, std::int32_t digits);

/// About 4 significant digits (AREAL), or 10 (AREAL8), without trailing zeros; the point stays.
/// Above that the value is rounded to a whole number.
void AREAL(TextRef out, float value);
void AREAL8(TextRef out, double value);

/// `decimals` digits behind the point; below 0 they count as 0, above 19 nothing fits.
void AREALD(TextRef out, float value, std::int32_t decimals);
void AREALD8(TextRef out, double value, std::int32_t decimals);

/// A number of days that grows with the date `date`, given as yyyymmdd: years have 365 days and no
/// leap day, and 1 January 2000 is day 1. -1 if a part of it is no integer or the month is not one
/// of 1 to 12.
std::int32_t NUMBEROFDAYS(std::string_view date);

/// True when the first item of `text` in free format is an integer of that size, which is then put
/// into `value`; otherwise `value` stays as it was.
bool CHECKINT(std::string_view text, std::int32_t& value);
bool CHECKINT4(std::string_view text, std::int32_t& value);
bool CHECKINT8(std::string_view text, std::int64_t& value);

}  // extern "C"

}  // namespace vantelgis
