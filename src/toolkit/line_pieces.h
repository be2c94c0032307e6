#pragma once

#include <cstddef>
#include <string_view>

#include "text/characters.h"
#include "text/text.h"

namespace vantelgis {

/// What the line routines look at: the line up to kLineCapacity, without trailing blanks.
constexpr std::string_view cutLine(std::string_view line) {
    return withoutTrailingBlanks(line.substr(0, kLineCapacity));
}

/// The place (from 0) of the first `wanted` that stands outside quotes, `npos` if there is none.
/// Either kind of quote opens a quoted text and either kind closes it; a doubled one does neither.
constexpr std::size_t findOutsideQuotes(std::string_view text, char wanted) {
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        // A doubled quote closes the text and opens it again at once.
        if (isQuote(text[i]))
            quoted = !quoted;
        else if (text[i] == wanted && !quoted)
            return i;
    }
    return std::string_view::npos;
}

}  // namespace vantelgis
