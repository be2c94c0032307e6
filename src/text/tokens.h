#pragma once

#include <cstdint>
#include <string_view>

#include "text/text.h"

namespace vantelgis {

/// Cuts the first token from `line`: up to a blank outside quotes, in which either kind of quote
/// may open or close a text and a doubled one does neither. The token loses its quotes and leading
/// blanks; `line` keeps the remainder without leading blanks.
void NEXTTOKEN(TextRef out, TextRef line);

extern "C" {

/// The number of fields of `s` between the character `separator`; 0 if it is blank.
std::int32_t NUMBEROFSUBSTRINGS(std::string_view s, std::string_view separator);

/// Field `k`, from 1, without leading blanks; blank when there are fewer.
void SUBSTRING(TextRef out, std::string_view s, std::string_view separator, std::int32_t k);

/// The count of numbers on a line, empty ones between commas included; "!" and "#" end it. If it
/// holds any other text, the count in front of that, negated.
std::int32_t NUMBEROFNUMBERS(std::string_view s);

}  // extern "C"

}  // namespace vantelgis
