#pragma once

#include <string>

namespace vantelgis::drop {

enum class Geometry { unknown, points, lines };

/// What a layer is made of, judged by the shape type in the header of a .shp (ESRI Shapefile
/// Technical Description, table of the main file header) or the first object of a .mif. Unknown
/// when it is neither, or the file can't be read.
Geometry geometryOf(const std::string& layer);

/// The converter will find a projection for shapefiles in this folder: the first that is there of
/// Header.prj and Projection.prj has a projected system on one line. `folder` ends in a separator.
bool hasUsableProjection(const std::string& folder);

}  // namespace vantelgis::drop
