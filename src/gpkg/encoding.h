#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vantelgis::gpkg {

/// How the bytes of an archive spell text.
enum class Encoding {
    automatic,  ///< UTF-8 where that is valid, else Windows-1252; a mark says UTF-16
    utf8,
    windows1252,
    utf16Little,
    utf16Big,
};

constexpr bool isUtf16(Encoding encoding) {
    return encoding == Encoding::utf16Little || encoding == Encoding::utf16Big;
}

/// False for a name that isn't one: `auto`, `utf-8`, `windows-1252`, `utf-16le`, `utf-16be`.
[[nodiscard]] bool encodingFromName(std::string_view name, Encoding& encoding);

/// Behind the last byte of the character of UTF-8 that begins at `at`, which goes into `character`;
/// `at` itself when none does (bytes that can't be, overlong forms, surrogates).
[[nodiscard]] std::size_t endOfCharacter(std::string_view text, std::size_t at,
                                         char32_t& character);

[[nodiscard]] bool isUtf8(std::string_view text);

void appendUtf8(std::string& text, char32_t character);

/// Makes `text` of `bytes` that are spelled as `encoding` says, in UTF-8 (UTF-16 is made UTF-8 by
/// the file, see transcoding.h). Bytes that can't be, and the zero byte, become U+FFFD. A character
/// that was cut off at the end is dropped when `cut` says that bytes may be missing there.
void decode(std::string& text, std::string_view bytes, Encoding encoding, bool cut);

/// Adds a character of Unicode as Windows-1252 spells it; false, and a question mark, when it
/// doesn't know it.
bool appendWindows1252(std::string& bytes, char32_t character);

/// At most the first `size` bytes of `text`, cut between two characters of UTF-8.
[[nodiscard]] std::string_view cutUtf8(std::string_view text, std::size_t size);

}  // namespace vantelgis::gpkg
