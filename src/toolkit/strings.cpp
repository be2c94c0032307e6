#include "toolkit/strings.h"

#include <algorithm>

#include "text/characters.h"
#include "text/copying.h"
#include "text/strings.h"
#include "toolkit/line_pieces.h"

namespace vantelgis {

namespace {

constexpr std::size_t kShortStringCapacity = 256;

}  // namespace

void TRIMF(TextRef out, std::string_view s) {
    out.assign(withoutLeadingBlanks(s));
}

void REMOVETABS(TextRef out, std::string_view s) {
    copyWanted(out, s, [](char c) { return c != '\t'; });
}

void REMOVEQUOTES(TextRef out, std::string_view s) {
    copyWanted(out, s, [](char c) { return !isQuote(c); });
}

void REMOVESPACES(TextRef out, std::string_view s) {
    copyWanted(out, s, [](char c) { return c != ' '; });
}

void DOUBLEQUOTE(TextRef out, std::string_view s) {
    out.assign(s);
    std::size_t from = *out.length;
    const auto quotes = std::count(out.data, out.data + from, '"');
    std::size_t to = from + static_cast<std::size_t>(quotes);
    const std::size_t length = std::min(to, out.capacity);
    const auto put = [&](char c) {
        if (--to < out.capacity) out.data[to] = c;
    };
    // From the end on, so that nothing is overwritten before it has been moved.
    while (from != to) {
        const char c = out.data[--from];
        put(c);
        if (c == '"') put(c);
    }
    out.setLength(length);
}

void UPPERCASE(TextRef out, std::string_view s) {
    copyChanged(out, s, toUpper);
}
void LOWERCASE(TextRef out, std::string_view s) {
    lowerCase(out, s);
}

void ALPHANUMERICONLY(TextRef out, std::string_view s, std::string_view fill) {
    keepAlphanumerics(out, s, fill.empty() ? ' ' : fill.front());
}

void CLEANATTRIBUTENAME(TextRef out, std::string_view s, std::int32_t length) {
    cleanAttributeName(out, s, static_cast<std::size_t>(std::max(length, 0)));
}

void SS256(TextRef out, std::string_view s) {
    out.assign(s.substr(0, kShortStringCapacity));
}

bool BLANK(TextRef s) {
    REMOVETABS(s, s.view());
    return *s.length == 0;
}

bool ASAME(std::string_view a, std::string_view b) {
    return looselyEqual(a, b);
}

bool ASAMECS(std::string_view a, std::string_view b) {
    return looselyEqual(a, b, LetterCase::kept);
}

bool FLAGEXISTS(std::string_view line, std::string_view flag) {
    return containsIgnoringCase(line.substr(0, kLineCapacity), cutLine(flag));
}

}  // namespace vantelgis
