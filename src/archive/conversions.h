#pragma once

#include <string_view>

namespace vantelgis {

// The conversions from the archive to GIS layers. Each opens the archive, which then stays open
// until the end of the run, writes its layers and closes them.

/// Set by -hip: "hipdata" blocks are converted as well.
extern bool includeHip;

/// Every string of the archive becomes a polyline, and each of its vertices that has an elevation a
/// point. The extension of `outputPath` decides the format.
void convert_12da_to_mif(std::string_view inputPath, std::string_view outputPath);

/// Every 3d string becomes a cross-section: a .csv file of chainages and elevations beside the
/// archive, a polyline that names it, and a point for each vertex that has an elevation, in a layer
/// of its own.
void convert_12da_to_xs(std::string_view inputPath, std::string_view outputPath);

}  // namespace vantelgis
