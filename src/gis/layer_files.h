#pragma once

#include <string_view>
#include <vector>

#include "text/text.h"

namespace vantelgis {

/// The names of the files that belong to the layer `name`, itself among them: the pair of a MapInfo
/// layer, given by either name or its bare stem; the .shp, .shx, .dbf and .prj of a shapefile. A
/// name of any other kind stands alone.
std::vector<Path> gisFilesOf(std::string_view name);

/// The name, without extension, of the files that hold one shape family of the shapefile `name`:
/// road_L of road.shp, for the letter L.
Path gisFamilyStem(std::string_view name, char letter);

}  // namespace vantelgis
