#pragma once

#include <cstdint>

#include "gis/records.h"
#include "text/text.h"

namespace vantelgis {

// The operations through which a conversion reads and writes a layer, whatever its format. A handle
// below 1 or a layer of no known kind is an internal fault that stops the run, as does every
// failure of a read or write.
//
// Reading: gisReadHeader; then, as long as the layer's `atEnd` is false, gisObjectType and, if that
// is true, gisReadRecord and (for the kinds that are wanted) gisReadObject. Writing: gisWriteHeader
// with the fields in gisA_; then gisWriteObject and gisWriteRecord for each object.

/// Reads the header; the layer then stands at its first object.
void gisReadHeader(int gisID);

/// Goes back to the first object.
void gisGotoBeginningOfData(int gisID);

/// Clears `object`, finds the next object and sets its flags. False when the end was reached.
bool gisObjectType(int gisID, GisObject& object);

/// Reads the attribute record of the object as one line of comma-separated text.
void gisReadRecord(int gisID, const GisObject& object, TextRef record);

/// Reads the coordinates of the object that gisObjectType announced; for a plineMultiple those of
/// its next section.
void gisReadObject(int gisID, GisObject& object, ObjectNodes& nodes);

/// Writes the header from gisA_.
void gisWriteHeader(int gisID);

/// Writes the object that `object`, gisN, gisX and gisY describe.
void gisWriteObject(int gisID, GisObject& object);

/// Writes a point object at node `node` (from 1) of the coordinates in gisX and gisY, which must be
/// those of the object written last: what was made of a node for that object is used again.
void gisWritePointAtNode(int gisID, std::int32_t node);

/// Writes gisDataLine as the attribute record of the object written last.
void gisWriteRecord(int gisID, const GisObject& object);

/// True when a layer being read has no further object or record.
bool gisAtEnd(int gisID);

}  // namespace vantelgis
