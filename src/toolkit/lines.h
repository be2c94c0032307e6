#pragma once

#include <cstdint>
#include <string_view>

#include "text/text.h"

namespace vantelgis {

// Lines of text: what they hold, their fields, tokens and values. Letters match in any case, a
// blank is the space alone, and trailing blanks never count. Columns, fields and tokens count
// from 1. Lines are cut at 100,000 characters. An output may be the input's own string; what does
// not fit in it is cut.

extern "C" {

/// FLAGEXISTS; in addition `rest` receives what stands behind the flag, blank without a match.
bool FLAGEXISTSRET(std::string_view line, std::string_view flag, TextRef rest);

/// `line` holds "Read MI " or "Read GIS ", followed by `key`; with a blank key the words are
/// enough, here and in the next two.
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

/// Reads the next line of the open file `unit`, without its tabs and its comment (see COMMENTLINE).
/// True when something is left. At the end of the file, when the read fails, or for a unit that
/// isn't open, it reports that and stops the run.
bool READLINE(int unit, TextRef line);

/// Removes the leading blanks of `line` in place and cuts it at its first "#" or "!". True when
/// nothing is left in front of that.
bool COMMENTLINE(TextRef line);

/// Splits a configuration line into `left` and `value`: at `separator` if that is not blank and
/// occurs, otherwise behind column `column` if that is not 0. With neither, all of the line is
/// `left`, or `value` if the separator is blank. True when `left` holds `key`, or `key` is "*", and
/// `left` is not blank or may be (`column` is 0 and no separator was found).
bool CHECKLINE(std::string_view line, std::string_view key, std::string_view separator,
               std::int32_t column, TextRef value, TextRef left);

/// `s` with the first occurrence of `find`, in any case, replaced by `by`. A blank `find` occurs
/// nowhere.
void REPLACE(TextRef out, std::string_view s, std::string_view find, std::string_view by);

/// The same for all occurrences, also those that a replacement brings about. If `by` itself holds
/// `find` the search goes on behind each replacement.
void REPLACEALL(TextRef out, std::string_view s, std::string_view find, std::string_view by);

// Fields between commas; quotes mean nothing here.

/// The number of the first field that is the same as `name` by ASAME, `fallback` if there is none.
std::int32_t CSVCOLUMN(std::string_view line, std::string_view name, std::int32_t fallback);

/// The number in field `column`. A field that is missing or blank, or that is not one number as a
/// whole, gives 0 and false.
bool CSVVALUE(std::string_view line, std::int32_t column, float& value);

// Values of lines that hold either `keyword = value` or plain fields between commas. Each routine
// takes the line twice, in its original case and in lower case. When `keyword` occurs in the line
// the value stands behind the "=" that follows it; without an "=" that is reported and the run
// stops. Otherwise the value is field `column`; none if `column` is below 1. Commas inside quotes
// separate nothing.

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

/// Cuts the first token from `line`: up to a blank outside quotes, in which either kind of quote
/// may open or close a text and a doubled one does neither. The token loses its quotes and leading
/// blanks; `line` keeps the remainder without leading blanks.
void NEXTTOKEN(TextRef out, TextRef line);

/// The number of fields of `s` between the character `separator`; 0 if `s` is blank.
std::int32_t NUMBEROFSUBSTRINGS(std::string_view s, std::string_view separator);

/// Field `k` of `s` without leading blanks; blank when there are fewer or `k` is below 1.
void SUBSTRING(TextRef out, std::string_view s, std::string_view separator, std::int32_t k);

/// The count of numbers on a line, empty ones between commas included; "!" and "#" end it. If it
/// holds any other text, the count in front of that, negated.
std::int32_t NUMBEROFNUMBERS(std::string_view s);

}  // extern "C"

}  // namespace vantelgis
