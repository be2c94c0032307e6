#include "gpkg/to_archive/clean_text.h"

#include <algorithm>

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

void cleanText(std::string& clean, std::string_view text, TextChanges& changes) {
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
    if (clean.size() <= kLongestText) return;
    clean.resize(withoutTrailingBlanks(cutUtf8(clean, kLongestText)).size());
    ++changes.cut;
}

void appendValue(std::string& line, std::string_view clean) {
    const bool plain = !clean.empty() && std::all_of(clean.begin(), clean.end(), isPlain);
    if (!plain) line += '"';
    line += clean;
    if (!plain) line += '"';
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
