#include "toolkit/lines.h"

#include "run/console.h"
#include "run/messages.h"
#include "run/stop.h"
#include "text/free_format.h"
#include "text/number_field.h"
#include "text/strings.h"
#include "toolkit/line_pieces.h"
#include "toolkit/strings.h"

namespace vantelgis {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

struct Field {
    std::string_view line;
    std::string_view lowerLine;
    std::string_view keyword;
    std::int32_t column;
};

// How far a value runs.
enum class Extent { toComma, toLineEnd };

[[noreturn]] void stopWithoutEquals(std::string_view keyword) {
    DMESSAGES.text1 = "ERROR 0203 - No \"=\" sign found after keyword \"";
    DMESSAGES.text1 += keyword;
    DMESSAGES.text1 += "\".";
    reportMessage(1);
    stopRun();
}

// The text from the start of the value on.
std::string_view fromValue(const Field& field) {
    std::string_view line = cutLine(field.line);
    const std::string_view keyword = cutLine(field.keyword);
    const std::size_t at =
        keyword.empty() ? kNone : findIgnoringCase(cutLine(field.lowerLine), keyword);
    if (at != kNone) {
        const std::string_view behind = fromColumn(line, at + keyword.size() + 1);
        const std::size_t equals = behind.find('=');
        if (equals == kNone) stopWithoutEquals(keyword);
        return behind.substr(equals + 1);
    }
    if (field.column < 1) return {};
    for (std::int32_t column = 1; column < field.column; ++column) {
        const std::size_t comma = findOutsideQuotes(line, ',');
        if (comma == kNone) return {};
        line.remove_prefix(comma + 1);
    }
    return line;
}

void extract(TextRef out, const Field& field, Extent extent) {
    std::string_view value = fromValue(field);
    if (extent == Extent::toComma) value = value.substr(0, findOutsideQuotes(value, ','));
    // Quotes are dropped before the cut at the capacity of `out`, and so are the blanks in front.
    Text<kLineCapacity> work;
    REMOVEQUOTES(work, value);
    TRIMF(out, work);
}

[[noreturn]] void stopAtValue(const Field& field, std::string_view text, std::string_view wanted) {
    consoleLine(" Could not convert \"", text, "\" in column", IntegerText(field.column, 3), " to ",
                wanted, " value for the ", withoutTrailingBlanks(field.keyword), " field.");
    stopRun();
}

template <typename Number>
Number extractNumber(const Field& field, Number fallback, Item (*take)(FreeFormat&, Number&),
                     std::string_view wanted) {
    Text<kLineCapacity> text;
    extract(text, field, Extent::toComma);
    if (text.blank()) return fallback;
    FreeFormat list(text);
    Number value = fallback;
    if (!taken(take(list, value))) stopAtValue(field, text, wanted);
    return value;
}

}  // namespace

void EXTRACTSTRING(TextRef out, std::string_view line, std::string_view lowerLine,
                   std::string_view keyword, std::int32_t column) {
    extract(out, {line, lowerLine, keyword, column}, Extent::toComma);
}

void EXTRACTSTRINGREM(TextRef out, std::string_view line, std::string_view lowerLine,
                      std::string_view keyword, std::int32_t column) {
    extract(out, {line, lowerLine, keyword, column}, Extent::toLineEnd);
}

std::int32_t EXTRACTINTEGER(std::string_view line, std::string_view lowerLine,
                            std::string_view keyword, std::int32_t column, std::int32_t fallback) {
    return extractNumber<std::int32_t>({line, lowerLine, keyword, column}, fallback, takeInteger,
                                       "an integer");
}

float EXTRACTREAL(std::string_view line, std::string_view lowerLine, std::string_view keyword,
                  std::int32_t column, float fallback) {
    return extractNumber<float>({line, lowerLine, keyword, column}, fallback, takeReal, "a real");
}

}  // namespace vantelgis
