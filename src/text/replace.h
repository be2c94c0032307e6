#pragma once

#include <string_view>

#include "text/text.h"

namespace vantelgis {

extern "C" {

/// `s` with the first occurrence of `find`, in any case, replaced by `by`. Trailing blanks of
/// `find` and `by` don't count; a blank `find` occurs nowhere. `s` is cut at kLineCapacity.
void REPLACE(TextRef out, std::string_view s, std::string_view find, std::string_view by);

/// The same for all occurrences, also those that a replacement brings about. If `by` itself holds
/// `find` the search goes on behind each replacement.
void REPLACEALL(TextRef out, std::string_view s, std::string_view find, std::string_view by);

}  // extern "C"

}  // namespace vantelgis
