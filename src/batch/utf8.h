#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// UTF-8 as RFC 3629 describes it.
namespace vantelgis::batch {

/// Bytes of the character with which `text` (not empty) begins; 1 as well for a byte that begins no
/// character, which is then above 0x7F.
std::size_t utf8Length(std::string_view text);

void appendUtf8(std::string& out, unsigned codePoint);

/// `text` with every byte that is no UTF-8 and every control character replaced, for people to
/// read.
std::string readable(std::string_view text);

/// Columns that a readable text takes at a terminal, each character counted as one.
std::size_t columnsOf(std::string_view text);

/// A readable text of at most `columns` columns; what was cut out of its middle shows as "…".
std::string shortened(std::string_view text, std::size_t columns);

}  // namespace vantelgis::batch
