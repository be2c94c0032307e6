#pragma once

#include <bit>
#include <string_view>

#include "run/platform.h"

namespace vantelgis {

/// What a unit's file holds.
enum class Content {
    textLines,           ///< lines that end in LF or CR LF on input, CR LF on output
    unformattedRecords,  ///< opened for a host's own use; this program reads and writes none
    littleEndianBytes,   ///< a byte stream whose numbers have their low byte first
    bigEndianBytes,      ///< a byte stream whose numbers have their high byte first
};

/// How the opener goes about a file of a mode.
enum class Manner {
    usual,     ///< a file that is open is closed first; one that can't be opened is tried again
    inBlocks,  ///< the same; the opener's blockSize counts
    givesUp,   ///< an older file that can't be opened is left alone, and no unit is allocated
    silent,    ///< one try, without a word on what came of it
};

/// One of the fifteen open modes.
struct OpenMode {
    std::string_view code;      ///< two characters
    bool input;                 ///< the direction decides how a failure is handled
    platform::Access access;    ///< what happens to an existing file
    platform::Sharing sharing;  ///< whether others may write to it meanwhile
    Content content;
    Manner manner = Manner::usual;
};

/// How the numbers of such a file are stored.
constexpr std::endian byteOrderOf(const OpenMode& mode) {
    return mode.content == Content::bigEndianBytes ? std::endian::big : std::endian::little;
}

/// The mode of that code, whose trailing blank may lack; null for an unknown one.
const OpenMode* findOpenMode(std::string_view code);

}  // namespace vantelgis
