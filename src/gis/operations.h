#pragma once

#include <cstddef>
#include <string_view>

#include "gis/fields.h"
#include "gis/object.h"
#include "text/limits.h"

namespace vantelgis {

// The operations through which a conversion reads and writes a layer, whatever its format. A handle
// outside 1 to 100 or a layer of no known kind is an internal fault that stops the run, as does
// every failure of a read or write.
//
// Reading: gisReadHeader; then, as long as gisAtEnd is false, gisObjectType and, if that is true,
// gisReadRecord and (for the kinds that are wanted) gisReadObject, once for each part of a
// polyline.

/// Reads the header; the layer then stands at its first object.
void gisReadHeader(int gisID);

/// Goes back to the first object.
void gisGotoBeginningOfData(int gisID);

/// Finds the next object: its kind, counts and name. False when the end was reached.
bool gisObjectType(int gisID, GisObject& object);

/// Reads the attribute record of the object as one line of comma-separated text, which is good
/// until the next one is read. Of a table's record only so much is put together that the line has
/// its first `nItems` items.
std::string_view gisReadRecord(int gisID, const GisObject& object, int nItems = kMaxDbfFields);

/// Reads the coordinates of the object that gisObjectType announced; for a polyline of several
/// parts those of its next part.
void gisReadObject(int gisID, const GisObject& object, ObjectNodes& nodes);

/// True when the geometry file of a layer being read ends here. Its records don't count: an object
/// without one is a fault of the layer, not its end.
bool gisAtEnd(int gisID);

/// Writes an object with these nodes, and `row` as its attribute record: a line of comma-separated
/// text. A text object shows the row and lies at the second node, its box ends at the third.
void gisWriteObject(int gisID, const GisObject& object, OutputNodes& nodes, const NumberRow& row);

/// Writes a point at node `i` (from 0) of these nodes, and its row.
void gisWritePoint(int gisID, const OutputNodes& nodes, std::size_t i, const NumberRow& row);

}  // namespace vantelgis
