#include "gpkg/to_archive/clean_text.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "gpkg/encoding.h"
#include "gpkg/report.h"
#include "text/characters.h"
#include "text/strings.h"
#include "text/text.h"

namespace vantelgis::gpkg {

namespace {

constexpr bool isControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7f;
}

constexpr bool isPlain(char c) {
    return isLetter(c) || isDigit(c) || c == '_' || c == '-' || c == '.' || c == '+';
}

// Characters that need no change wherever they stand.
constexpr bool isHarmless(char c) {
    return c >= ' ' && c < 0x7f && c != '"' && c != '/' && c != '{' && c != '}';
}

// Every character of a text is known to be fine: `fine` says of each code whether it is.
using Characters = std::array<bool, 256>;
constexpr Characters charactersThat(bool (*fine)(char)) {
    Characters table{};
    for (std::size_t code = 0; code < table.size(); ++code)
        table[code] = fine(static_cast<char>(code));
    return table;
}
constexpr Characters kPlain = charactersThat(isPlain);
constexpr Characters kHarmless = charactersThat(isHarmless);

bool standsAsItIs(std::string_view text, const Characters& fine) {
    if (text.empty()) return true;
    return text.size() <= kLongestText && text.back() != ' ' &&
           std::all_of(text.begin(), text.end(),
                       [&fine](char c) { return fine[static_cast<unsigned char>(c)]; });
}

// A reader of archives takes any line with a brace and one of these words for the start of a block,
// whatever stands around them.
void roundBraces(std::string& text, TextChanges& changes) {
    if (text.find('{') == std::string::npos) return;
    if (!containsIgnoringCase(text, "data") && !containsIgnoringCase(text, "string")) return;
    std::replace(text.begin(), text.end(), '{', '(');
    std::replace(text.begin(), text.end(), '}', ')');
    ++changes.braces;
}

}  // namespace

std::string_view cleanText(std::string_view text, std::string& clean, TextChanges& changes) {
    if (standsAsItIs(text, kHarmless)) return text;
    std::string whole;
    decode(whole, text, Encoding::utf8, false);
    clean.clear();
    for (const char c : whole) {
        if (c == '"') {
            clean += '\'';
            ++changes.quotes;
        } else if (isControl(c)) {
            clean += ' ';
            ++changes.lineEnds;
        } else if (c == '/' && !clean.empty() && clean.back() == '/') {
            clean += " /";
            ++changes.slashes;
        } else {
            clean += c;
        }
    }
    roundBraces(clean, changes);
    clean.resize(withoutTrailingBlanks(clean).size());
    if (clean.size() <= kLongestText) return clean;
    clean.resize(withoutTrailingBlanks(cutUtf8(clean, kLongestText)).size());
    ++changes.cut;
    return clean;
}

std::string_view attributeValue(std::string_view text, std::string& room, TextChanges& changes) {
    if (!text.empty() && standsAsItIs(text, kPlain)) return text;
    std::string cleaned;
    const std::string_view clean = cleanText(text, cleaned, changes);
    if (!clean.empty() && standsAsItIs(clean, kPlain)) return room = clean;
    return room = joined("\"", clean, "\"");
}

void reportChanges(const TextChanges& changes) {
    if (changes.quotes > 0)
        reportWarning(joined(counted(changes.quotes, "double quote", "double quotes"),
                             " in texts became single ones"));
    if (changes.lineEnds > 0)
        reportWarning(joined(counted(changes.lineEnds, "line end or tab", "line ends or tabs"),
                             " in texts became blanks"));
    if (changes.slashes > 0)
        reportWarning(
            joined(changes.slashes, " times // in texts became / /, as // begins a comment"));
    if (changes.braces > 0)
        reportWarning(joined("the braces of ", counted(changes.braces, "text", "texts"),
                             " became round ones, as they would have begun a block"));
    if (changes.cut > 0)
        reportWarning(joined(counted(changes.cut, "text was", "texts were"), " cut at ",
                             kLongestText, " bytes, the most that readers keep"));
}

}  // namespace vantelgis::gpkg
