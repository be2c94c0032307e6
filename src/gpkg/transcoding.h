#pragma once

#include <cstdint>
#include <string_view>

#include "gpkg/encoding.h"

namespace vantelgis::gpkg {

// Whole files from one spelling to another, in pieces, so that their size doesn't matter. Both fail
// when a file can't be read or written.

/// UTF-16 when the file begins with a mark of it, else `automatic`.
[[nodiscard]] Encoding markedEncoding(std::string_view file);

/// Writes `source`, in UTF-16 of one order with or without a mark, to `target` in UTF-8 without
/// one. Gives the number of code units that are no character; they become U+FFFD.
std::int64_t transcodeToUtf8(std::string_view source, Encoding encoding, std::string_view target);

/// Writes `source`, in UTF-8, to `target` in another spelling; UTF-16 begins with its mark. Gives
/// the number of characters that it doesn't know; they become question marks.
std::int64_t transcodeFromUtf8(std::string_view source, Encoding encoding, std::string_view target);

}  // namespace vantelgis::gpkg
