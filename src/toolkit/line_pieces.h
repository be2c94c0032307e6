#pragma once

#include <cstddef>
#include <string_view>

#include "text/text.h"

namespace vantelgis {

/// What the line routines look at: the line up to kLineCapacity, without trailing blanks.
constexpr std::string_view cutLine(std::string_view line) {
    return withoutTrailingBlanks(line.substr(0, kLineCapacity));
}

/// The place (from 0) of the first `wanted` that stands outside quotes, `npos` if there is none.
/// Either kind of quote opens a quoted text and either kind closes it; a doubled one does neither.
std::size_t findOutsideQuotes(std::string_view text, char wanted);

}  // namespace vantelgis
