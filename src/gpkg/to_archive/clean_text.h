#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vantelgis::gpkg {

/// What was changed in texts so that an archive can hold them.
struct TextChanges {
    std::int64_t quotes = 0;    ///< double quotes that became single ones
    std::int64_t lineEnds = 0;  ///< line ends, tabs and the like that became blanks
    std::int64_t slashes = 0;   ///< "//", which would begin a comment, taken apart by a blank
    std::int64_t braces =
        0;                 ///< texts whose braces, beside a word of the format, became round ones
    std::int64_t cut = 0;  ///< texts of more than kLongestText bytes
};

/// Bytes of a name, or another text of a string, that a reader of archives keeps.
inline constexpr std::size_t kLongestText = 100;

/// A text as it can stand between double quotes in a line of an archive: valid UTF-8, without
/// blanks at its end. Most texts are that already and come back as they are; others are made in
/// `clean`.
[[nodiscard]] std::string_view cleanText(std::string_view text, std::string& clean,
                                         TextChanges& changes);

/// A value as attribute lines have it: a plain word as it stands, anything else cleaned, in quotes.
[[nodiscard]] std::string_view attributeValue(std::string_view text, std::string& room,
                                              TextChanges& changes);

void reportChanges(const TextChanges& changes);

}  // namespace vantelgis::gpkg
