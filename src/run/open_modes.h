#pragma once

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

/// One of the fifteen open modes.
struct OpenMode {
    std::string_view code;      ///< two characters, compared exactly
    bool input;                 ///< the direction decides how a failure is handled
    platform::Access access;    ///< what happens to an existing file
    platform::Sharing sharing;  ///< whether others may write to it meanwhile
    Content content;
};

/// The mode of that code, null for an unknown one.
const OpenMode* findOpenMode(std::string_view code);

}  // namespace vantelgis
