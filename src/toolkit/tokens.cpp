#include "toolkit/lines.h"

#include <algorithm>

#include "text/characters.h"
#include "toolkit/line_pieces.h"
#include "toolkit/strings.h"

namespace vantelgis {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

// A blank separator reaches this place as an empty text.
char separatorOf(std::string_view separator) {
    return separator.empty() ? ' ' : separator.front();
}

constexpr bool beginsNumber(char c) {
    return isDigit(c) || c == '-' || c == '.' || c == 'e' || c == 'E';
}

}  // namespace

void NEXTTOKEN(TextRef out, TextRef line) {
    const std::string_view text = withoutLeadingBlanks(line.view());
    const std::size_t end = findOutsideQuotes(text, ' ');
    REMOVEQUOTES(out, text.substr(0, end));
    TRIMF(out, out.view());
    TRIMF(line, end == kNone ? std::string_view{} : text.substr(end));
}

std::int32_t NUMBEROFSUBSTRINGS(std::string_view s, std::string_view separator) {
    s = cutLine(s);
    if (s.empty()) return 0;
    return static_cast<std::int32_t>(std::count(s.begin(), s.end(), separatorOf(separator))) + 1;
}

void SUBSTRING(TextRef out, std::string_view s, std::string_view separator, std::int32_t k) {
    s = cutLine(s);
    const char divider = separatorOf(separator);
    for (std::int32_t field = 1; field < k; ++field) {
        const std::size_t at = s.find(divider);
        if (at == kNone) return out.clear();
        s.remove_prefix(at + 1);
    }
    TRIMF(out, k < 1 ? std::string_view{} : s.substr(0, s.find(divider)));
}

std::int32_t NUMBEROFNUMBERS(std::string_view s) {
    std::int32_t count = 0;
    bool inNumber = false;
    bool behindComma = false;
    for (const char c : cutLine(s)) {
        if (beginsNumber(c)) {
            if (!inNumber) ++count;
            inNumber = true;
            behindComma = false;
        } else if (c == '!' || c == '#') {
            return count;
        } else if (c == ' ' || c == '\t') {
            inNumber = false;
        } else if (c == ',') {
            if (!inNumber && behindComma) ++count;
            behindComma = true;
            inNumber = false;
        } else {
            return -count;
        }
    }
    return count;
}

}  // namespace vantelgis
