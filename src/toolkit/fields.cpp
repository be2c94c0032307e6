#include "toolkit/lines.h"

#include <algorithm>

#include "text/characters.h"
#include "text/free_format.h"
#include "text/strings.h"
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

// Gives the fields of a line one after the other.
class Fields {
  public:
    explicit Fields(std::string_view line) : rest_(cutLine(line)) {}
    bool next(std::string_view& field) {
        if (ended_) return false;
        const std::size_t comma = rest_.find(',');
        ended_ = comma == std::string_view::npos;
        field = rest_.substr(0, comma);
        if (!ended_) rest_.remove_prefix(comma + 1);
        return true;
    }

  private:
    std::string_view rest_;
    bool ended_ = false;
};

}  // namespace

std::int32_t CSVCOLUMN(std::string_view line, std::string_view name, std::int32_t fallback) {
    Fields fields(line);
    std::string_view field;
    for (std::int32_t column = 1; fields.next(field); ++column)
        if (looselyEqual(field, name)) return column;
    return fallback;
}

bool CSVVALUE(std::string_view line, std::int32_t column, float& value) {
    value = 0;
    Fields fields(line);
    std::string_view field;
    std::int32_t reached = 0;
    while (reached < column && fields.next(field)) ++reached;
    if (column < 1 || reached < column) return false;
    FreeFormat list(field);
    float number;
    if (takeReal(list, number) != Item::value) return false;
    if (!withoutTrailingBlanks(list.rest()).empty()) return false;
    value = number;
    return true;
}

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
