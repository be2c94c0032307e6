#pragma once

#include <string_view>

#include "gis/layer_table.h"

namespace vantelgis {

/// Opens for input the files of the shapefile `name`, which must end in .shp: the .shp twice, once
/// for each byte order, and the .dbf.
void shpOpenInput(std::string_view name, shpL_& shp, dbfL_& dbf);

/// Opens for output a set for each letter of `shapeFamilies`: P points, L lines, R regions, in
/// either case. The letter goes into the file names (road.shp becomes road_L.shp); each set is a
/// .shp and a .shx, both twice, a .prj and a .dbf. A family named twice is opened once; another
/// letter, or none at all, stops the run before a file is made.
void shpOpenFamilies(std::string_view name, std::string_view shapeFamilies, GisLayer& layer);

/// Closes whatever files of the layer's sets are still open.
void shpCloseFiles(GisLayer& layer);

}  // namespace vantelgis
