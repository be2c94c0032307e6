#pragma once

#include <cstdint>

#include "gis/records.h"

namespace vantelgis {

// The writer of MapInfo Interchange files (the format's appendix in the MapInfo reference).

/// Writes the header from the attribute fields and gisMifCoordSys. A failed write is ERROR 0439.
void gisMifWriteHeader(const GisAttributes& fields, int mifUnit);

/// Writes one object from gisN, gisX and gisY. A kind that can't be written is ERROR 0350, a failed
/// write ERROR 0439.
void gisMifWriteObject(const GisObject& object, int mifUnit);

/// Writes a point at node `node` (from 1) of the object that gisMifWriteObject wrote last, with the
/// text that its coordinates got there.
void gisMifWritePointAtNode(std::int32_t node, int mifUnit);

}  // namespace vantelgis
