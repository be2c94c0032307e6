#pragma once

#include <string_view>

#include "gis/layer_table.h"

namespace vantelgis {

// The reader of dBase III tables, strictly forward: the header's own sizes are not used, its
// terminator byte says where the records begin. The bytes of the fields pass through unchanged.

/// Goes back to the start and reads the table header and the field descriptors, which it shows on
/// the console. Leaves the file at the first record. Nothing happens without an open file.
void dbfReadHeader(dbfL_& dbf);

/// Reads the next record that is not deleted as one line of comma-separated text, character fields
/// in double quotes; it is the table's `row`. The line may end early, but not before it has its
/// first `nItems` items and the comma behind them. At the mark behind the last record it is blank,
/// and a count that differs from the header's is warned of.
std::string_view dbfReadRecord(dbfL_& dbf, int nItems);

}  // namespace vantelgis
