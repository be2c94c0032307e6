#pragma once

#include <string>
#include <string_view>

namespace vantelgis::gpkg {

/// What can be told of a coordinate system from its well-known text, without knowing what it means.
struct CoordinateSystem {
    std::string wkt;           ///< on one line; empty: undefined
    std::string name;          ///< the first text in quotes
    bool wkt2 = false;         ///< in the words of ISO 19162, which older programs don't read
    bool geographic = false;   ///< its coordinates are degrees
    std::string organization;  ///< such as EPSG, empty when the text names none for the whole
    int code = 0;              ///< the organization's number
};

/// Reads well-known text of either kind (OGC 01-009; ISO 19162), on any number of lines, with or
/// without a mark of UTF-8. False when it isn't one: an unknown first word, brackets or quotes that
/// don't close.
[[nodiscard]] bool readWkt(std::string_view text, CoordinateSystem& system);

}  // namespace vantelgis::gpkg
