#pragma once

#include <cstddef>
#include <string_view>

#include "text/text.h"

namespace vantelgis {

// Finding, comparing and cleaning of strings. A blank is the space alone and letters are the ASCII
// letters. Nothing here fails or allocates.

/// The place (from 0) of the first occurrence of `wanted` in `s`, without regard to case; `npos` if
/// there is none. An empty `wanted` is found at the start.
std::size_t findIgnoringCase(std::string_view s, std::string_view wanted);

/// `word` occurs in `line`, without regard to case. An empty word occurs in every line.
bool containsIgnoringCase(std::string_view line, std::string_view word);

enum class LetterCase { ignored, kept };

/// The first kCompareCapacity characters of `a` and `b` are equal once quotes, tabs and then
/// leading blanks are taken away; behind the end of either one stand blanks.
bool looselyEqual(std::string_view a, std::string_view b, LetterCase letters = LetterCase::ignored);

/// `s` with its letters in lower case; cut at the capacity of `out`, which may be the string of
/// `s`.
void lowerCase(TextRef out, std::string_view s);

/// `s` with each character that is neither letter nor digit replaced by `fill`, or dropped when
/// that is the zero byte; cut at the capacity of `out`, which may be the string of `s`. "X" if
/// nothing but blanks is left.
void keepAlphanumerics(TextRef out, std::string_view s, char fill);

/// The letters, digits and underscores among the first `length` characters of `s`; "X" if there
/// are none. Cut at the capacity of `out`, which may be the string of `s`.
void cleanAttributeName(TextRef out, std::string_view s, std::size_t length);

/// Replaces the `count` characters of `text` at place `at` (from 0) by `by`, which must not lie in
/// `text`. The characters must be there. What no longer fits is cut.
void replacePiece(TextRef text, std::size_t at, std::size_t count, std::string_view by);

}  // namespace vantelgis
