#include "text/quoted_text.h"

#include "text/characters.h"

namespace vantelgis {

std::size_t findOutsideQuotes(std::string_view text, char wanted, std::size_t from) {
    bool quoted = false;
    for (std::size_t i = from; i < text.size(); ++i) {
        const char c = text[i];
        if (!isQuote(c)) {
            if (c == wanted && !quoted) return i;
        } else if (quoted && i + 1 < text.size() && text[i + 1] == c) {
            ++i;
        } else {
            quoted = !quoted;
        }
    }
    return std::string_view::npos;
}

}  // namespace vantelgis
