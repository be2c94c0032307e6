#include "toolkit/line_pieces.h"

#include "text/characters.h"

namespace vantelgis {

std::size_t findOutsideQuotes(std::string_view text, char wanted) {
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
