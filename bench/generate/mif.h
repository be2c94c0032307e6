#pragma once

#include <string_view>

#include "generate/output.h"

// What the layers in MapInfo form have in common.
namespace bench {

inline constexpr std::string_view kCoordSys =
    "CoordSys Earth Projection 8, 116, \"m\", 153, 0, 0.9996, 500000, 10000000\n";

// The head of a .mif up to its first object; the columns are lines of their own.
inline void putMifHead(Output& mif, std::int64_t columns, std::string_view columnLines) {
    mif << "Version 300\nCharset \"WindowsLatin1\"\nDelimiter \",\"\n"
        << kCoordSys << "Columns " << columns << "\n"
        << columnLines << "Data\n\n";
}

}  // namespace bench
