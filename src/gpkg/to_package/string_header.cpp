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

struct TextAttribute {
    std::string_view word;
    std::string StringHeader::*target;
};
constexpr TextAttribute kTexts[] = {
    {"colour", &StringHeader::colour},       {"color", &StringHeader::colour},
    {"style", &StringHeader::style},         {"model", &StringHeader::model},
    {"breakline", &StringHeader::breakline},
};

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

// `name` and `z` are looked for as the converter does: any line that begins so.
void StringHeader::take(std::string_view text) {
    if (beginsWith(text, "name")) {
        named = true;
        return;
    }
    if (beginsWith(text, "z")) {
        levelled = true;
        return;
    }
    std::string_view value;
    for (const TextAttribute& row : kTexts)
        if (takeValue(text, row.word, value)) return assignValue(this->*row.target, value);
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
    std::string_view value;
    if (!takeValue(line, "model", value)) return false;
    assignValue(model, value);
    return true;
}

}  // namespace vantelgis::gpkg
