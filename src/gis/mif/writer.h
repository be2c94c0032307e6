#pragma once

#include <cstddef>
#include <string_view>

#include "gis/fields.h"
#include "gis/layer_table.h"
#include "gis/object.h"
#include "text/text.h"

namespace vantelgis {

// The writer of MapInfo Interchange files (the format's appendix in the MapInfo reference).

/// The CoordSys line of layers that are made.
extern Line gisMifCoordSys;

/// Writes the header from the attribute fields and gisMifCoordSys. A failed write is ERROR 0439.
void gisMifWriteHeader(FieldDefinitions fields, int mifUnit);

/// Writes one object and its row. A kind that can't be written is ERROR 0350, a failed write ERROR
/// 0439 of the .mif and ERROR 0254 of the .mid.
void gisMifWriteObject(mifL_& layer, const GisObject& object, OutputNodes& nodes,
                       std::string_view row);

/// Writes a point at node `i` (from 0), as that node was written, and its row.
void gisMifWritePoint(mifL_& layer, const OutputNodes& nodes, std::size_t i, std::string_view row);

}  // namespace vantelgis
