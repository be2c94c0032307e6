#pragma once

#include <cstdint>
#include <string_view>

#include "text/text.h"

namespace vantelgis {

// Tests of an input line: what it holds, and what it is. Letters match in any case. Lines are cut
// at kLineCapacity. `line` and the outputs may be the same string.

extern "C" {

/// FLAGEXISTS; in addition `rest` receives what stands behind the flag, blank without a match.
bool FLAGEXISTSRET(std::string_view line, std::string_view flag, TextRef rest);

/// `line` holds "Read MI " or "Read GIS ", followed by `key`.
bool READGIS(std::string_view line, std::string_view key);

/// `line` holds "Write MI " or "Write GIS ", followed by `key`.
bool WRITEGIS(std::string_view line, std::string_view key);

/// `line` holds "Read MID " or "Read RowCol ", followed by `key`.
bool READROWCOL(std::string_view line, std::string_view key);

/// Removes the leading blanks of `s` in place; true when it is blank or begins with a digit, "-"
/// or ".".
bool NUMBERLINE(TextRef s);

/// Removes the leading blanks of `s` in place; true when digits, and nothing else, are left.
bool POSITIVEINTEGERNUMBER(TextRef s);

/// Removes the leading blanks of `line` in place and cuts it at its first "#" or "!". True when
/// nothing is left in front of that.
bool COMMENTLINE(TextRef line);

/// Splits a configuration line into `left` and `value`: at `separator` if that is not blank and
/// occurs, otherwise behind column `column` if that is not 0. With neither, all of the line is
/// `left`, or `value` if the separator is blank. True when `left` holds `key`, or `key` is "*", and
/// `left` is not blank or may be (`column` is 0 and no separator was found).
bool CHECKLINE(std::string_view line, std::string_view key, std::string_view separator,
               std::int32_t column, TextRef value, TextRef left);

}  // extern "C"

}  // namespace vantelgis
