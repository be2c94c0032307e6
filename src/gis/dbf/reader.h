#pragma once

#include <string_view>

#include "gis/layer_table.h"

namespace vantelgis {

// The reader of dBase III tables, strictly forward: the header's own sizes are not used, its
// terminator byte says where the records begin. The bytes of the fields pass through unchanged.

/// Goes back to the start and reads the table header and the field descriptors, which it shows on
/// the console. Leaves the file at the first record. Nothing happens without an open file. A header
/// that can't be read or makes no sense stops the run with ERROR 0319 or 0401 to 0404.
void dbfReadHeader(dbfL_& dbf);

/// Reads the next record that is not deleted as one line of comma-separated text, character fields
/// in double quotes; it is the table's `row`. The line may end early, but not before it has its
/// first `nItems` items and the comma behind them. At the mark behind the last record it is blank,
/// and a count that differs from the header's is warned of (0405). A record that can't be read, or
/// with another mark, stops the run with ERROR 0406 to 0408.
std::string_view dbfReadRecord(dbfL_& dbf, int nItems);

}  // namespace vantelgis
