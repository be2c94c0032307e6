#pragma once

#include <cstdint>
#include <string_view>

#include "text/text.h"

namespace vantelgis {

// Trimming, cleaning, comparing and searching of strings. A blank is the space alone, letters are
// the ASCII letters, and trailing blanks never count, neither in arguments nor in results. An
// output may be the input's own string; what does not fit in it is cut. Nothing here fails.

extern "C" {

/// `s` without leading blanks.
void TRIMF(TextRef out, std::string_view s);

/// `s` without its tabs.
void REMOVETABS(TextRef out, std::string_view s);

/// `s` without any double or single quotes.
void REMOVEQUOTES(TextRef out, std::string_view s);

/// `s` without any blanks.
void REMOVESPACES(TextRef out, std::string_view s);

/// `s` with each double quote written twice.
void DOUBLEQUOTE(TextRef out, std::string_view s);

/// `s` with its letters in upper, or lower, case.
void UPPERCASE(TextRef out, std::string_view s);
void LOWERCASE(TextRef out, std::string_view s);

/// `s` with each character that is neither letter nor digit replaced by the first character of
/// `fill` (a blank if `fill` is empty), or dropped when that is the zero byte. "X" if nothing but
/// blanks is left.
void ALPHANUMERICONLY(TextRef out, std::string_view s, std::string_view fill);

/// The letters, digits and underscores among the first `length` characters of `s`; "X" if there
/// are none.
void CLEANATTRIBUTENAME(TextRef out, std::string_view s, std::int32_t length);

/// The first 256 characters of `s`.
void SS256(TextRef out, std::string_view s);

/// Removes the tabs of `s` in place; true when nothing but blanks remains.
bool BLANK(TextRef s);

/// The first 1000 characters of `a` and `b` are equal once quotes, tabs and then leading blanks are
/// taken away, without regard to case (ASAME) or with it (ASAMECS).
bool ASAME(std::string_view a, std::string_view b);
bool ASAMECS(std::string_view a, std::string_view b);

/// `flag` occurs in the first 100,000 characters of `line`, without regard to case. A blank flag
/// occurs in every line.
bool FLAGEXISTS(std::string_view line, std::string_view flag);

}  // extern "C"

}  // namespace vantelgis
