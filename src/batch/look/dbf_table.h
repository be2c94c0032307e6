#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// What the table of a shapefile says of its rows (the dBase III table layout).
namespace vantelgis::batch {

struct DbfTable {
    bool readable = false;       ///< header and field descriptors are whole
    std::int64_t records = 0;    ///< that the header counts
    std::int64_t deleted = 0;    ///< rows marked so, among those that were seen
    std::int64_t active = 0;     ///< all others among them
    std::int64_t asterisks = 0;  ///< rows in which one of the first fields is all asterisks
    bool whole = true;           ///< every row was seen
};

/// Reads the marks of the rows and the first `fields` columns: of all rows up to `kWholeSize` bytes
/// or if `full`, else of the first and the last ones.
DbfTable readDbfTable(const std::string& path, int fields, bool full);

}  // namespace vantelgis::batch
