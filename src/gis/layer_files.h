#pragma once

#include <string_view>
#include <vector>

#include "text/text.h"

namespace vantelgis {

/// The names of the files that belong to the layer `name`, itself among them: the pair of a MapInfo
/// layer, given by either name or its bare stem; the .shp, .shx, .dbf and .prj of a shapefile. A
/// name of any other kind stands alone.
std::vector<Path> gisFilesOf(std::string_view name);

}  // namespace vantelgis
