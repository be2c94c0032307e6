#include "gpkg/to_package/string_header.h"

#include "text/characters.h"
#include "text/free_format.h"
#include "text/text.h"

namespace vantelgis::gpkg {

namespace {

constexpr bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

// The value of a whole word at the start of a line, such as red of `colour red`.
bool takeValue(std::string_view line, std::string_view word, std::string_view& value) {
    if (!beginsWith(line, word)) return false;
    value = line.substr(word.size());
    if (!value.empty() && !isBlank(value.front()) && !isQuote(value.front())) return false;
    value = trimmed(value);
    return true;
}

// A value without quotes may have blanks: `colour off yellow`.
void assignValue(std::string& target, std::string_view value) {
    if (value.empty() || !isQuote(value.front())) {
        target = value;
        return;
    }
    FreeFormat list{value};
    Line word;
    takeWord(list, word);
    target = word.view();
}

bool takeText(std::string_view line, std::string_view word, std::string& target) {
    std::string_view value;
    if (!takeValue(line, word, value)) return false;
    assignValue(target, value);
    return true;
}

}  // namespace

void StringHeader::begin(std::int64_t lineNumber, std::string_view typeText) {
    line = lineNumber;
    type = typeText;
    model.clear();
    colour.clear();
    style.clear();
    breakline.clear();
    chainage.reset();
    named = levelled = closed = false;
}

// `name` and `z` are looked for as the converter does: any line that begins so. The first letter
// decides, as there are as many of these lines as vertices in an archive of short strings.
void StringHeader::take(std::string_view text) {
    if (text.empty()) return;
    switch (toUpper(text.front())) {
        case 'N': named = named || beginsWith(text, "name"); break;
        case 'Z': levelled = true; break;
        case 'M': takeText(text, "model", model); break;
        case 'S': takeText(text, "style", style); break;
        case 'B': takeText(text, "breakline", breakline); break;
        case 'C':
            if (!takeText(text, "colour", colour) && !takeText(text, "color", colour))
                takeClosedOrChainage(text);
            break;
        default: break;
    }
}

void StringHeader::takeClosedOrChainage(std::string_view text) {
    std::string_view value;
    if (takeValue(text, "closed", value)) {
        closed = !value.empty() &&
                 std::string_view("1YyTt").find(value.front()) != std::string_view::npos;
    } else if (takeValue(text, "chainage", value)) {
        FreeFormat list{value};
        double number = 0;
        if (takeReal(list, number) == Item::value) chainage = number;
    }
}

bool takeModelLine(std::string_view line, std::string& model) {
    return takeText(line, "model", model);
}

}  // namespace vantelgis::gpkg
