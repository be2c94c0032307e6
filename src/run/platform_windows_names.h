#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vantelgis::platform {

// How names and other texts pass between the program, whose texts are bytes, and Windows, whose
// texts are wide. A text is kept in the ANSI page when it can be said there, so that model names,
// paths in results and redirected console text have the bytes that their readers are used to; else
// in UTF-8. Going out, bytes that are valid UTF-8 are UTF-8, all others ANSI.

/// `text` as Windows takes it.
std::wstring wideText(std::string_view text);

/// `wide` as the program keeps it; nothing when it holds half a surrogate pair.
std::optional<std::string> narrowText(const std::wstring& wide);

/// `text` in UTF-8, whatever its form was.
std::string utf8Text(std::string_view text);

/// `wide` in UTF-8; half a surrogate pair becomes the replacement character.
std::string utf8Text(const std::wstring& wide);

/// `text` has characters above 127 and is valid UTF-8.
bool isBeyondAsciiUtf8(std::string_view text);

/// `name` as the file calls take it: a name whose full form is longer than the classic limit is
/// given in full and with the mark of long names.
std::wstring systemName(std::string_view name);

}  // namespace vantelgis::platform
