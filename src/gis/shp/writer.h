#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "gis/fields.h"
#include "gis/layer_table.h"
#include "gis/object.h"
#include "text/text.h"

namespace vantelgis {

// The writer of ESRI shapefiles (the layout is that of the ESRI Shapefile Technical Description).
// The .shp and the .shx are open on two units each, one for each byte order, but every byte is
// written once: the .shp goes out through shpUnit, the .shx through shxUnitBE.

/// The line of the .prj files of layers that are made.
extern Line gisShpProjCS;

/// What a refused write of a header, or of an object, stops with.
inline constexpr std::string_view kShpHeaderFailure = "ERROR 0437 - Writing .shp file header.";
inline constexpr std::string_view kShpObjectFailure =
    "ERROR 0439 - Writing .shp file object coordinates.";

/// The length of the header of a .shp and of a .shx, in 16-bit words.
inline constexpr std::int32_t kShpHeaderWords = 50;

/// Empties the file behind `unit` and writes the 100 bytes of a main header through it. `twin`, the
/// file's other unit, only has to be open. A refused write is kShpHeaderFailure.
void shpWriteHeader(shpL_& shp, int unit, int twin);

/// Writes the .prj line and the headers of every set of the layer, its .dbf included, and makes the
/// sets ready for their first object.
void shpWriteLayerHeaders(GisLayer& layer, FieldDefinitions fields);

/// Writes one object. A kind that can't be written is ERROR 0350; a refused write, or a file that
/// would outgrow its 32-bit lengths, kShpObjectFailure.
void shpWriteObject(const GisObject& object, const OutputNodes& nodes, shpL_& shp);
void shpWritePoint(double x, double y, shpL_& shp);

/// Writes the object and its row to the set of its family; an object without geometry to all. A
/// text object becomes a point.
void shpWriteLayerObject(GisLayer& layer, const GisObject& object, const OutputNodes& nodes,
                         const NumberRow& row);

/// Writes a point at node `i` (from 0) and its row to the set of points.
void shpWriteLayerPoint(GisLayer& layer, const OutputNodes& nodes, std::size_t i,
                        const NumberRow& row);

/// Puts what only the end can know into the headers of all sets, family by family, and closes the
/// files that got an object. kFinishFailure when a header can't be rewritten.
void shpFinishLayer(GisLayer& layer);

}  // namespace vantelgis
