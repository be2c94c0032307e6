#pragma once

#include <cstdint>
#include <string_view>

#include "gis/fields.h"
#include "gis/layer_table.h"

namespace vantelgis {

// The writer of dBase III tables. Values stand in their fields as they stand in the record line;
// nothing is reformatted.

/// What a header stops with that can't be rewritten at the end: of a table, or of the shapefile's
/// other files.
inline constexpr std::string_view kFinishFailure =
    "ERROR 0413 - Rewriting .dbf file header with final information.";

/// Empties the table and writes its header and descriptors from the attribute fields, with the
/// local date. Nothing happens without an open file. Fields that a table can't hold (ERROR 0319,
/// 0411, 0412), and a refused write (ERROR 0413), stop the run.
void dbfWriteHeader(FieldDefinitions fields, dbfL_& dbf);

/// Writes a record from `row`, a line of comma-separated text: an item that it leaves out is that
/// of the record before, of whatever table. ERROR 0419 when the count of records is at its limit,
/// ERROR 0417 when a write was refused; a row that makes no sense is an internal fault.
void dbfWriteRecord(const NumberRow& row, dbfL_& dbf);

/// Forgets the items of the records before; a run starts so.
void dbfForgetItems();

/// Writes the mark behind the last record, puts the number of records into the header and closes
/// the file. ERROR 0417 or kFinishFailure when a write is refused.
void dbfFinish(dbfL_& dbf);

/// `value` as the 16 or 8 bits of an unsigned number; one outside its range stops the run.
std::int16_t i2u(std::int64_t value);
std::int8_t i1u(std::int64_t value);

}  // namespace vantelgis
