#pragma once

#include <string_view>

#include "gis/records.h"

namespace vantelgis {

/// Opens the files of one shapefile set: for input ("I ") the .shp twice, once for each byte order,
/// and the .dbf; for output ("O ") also the .shx twice and the .prj. `name` must end in .shp. A
/// `family` that is not blank goes into the file names (road.shp becomes road_L.shp); output needs
/// one. False, with nothing opened, when a family's file to read is not there.
bool OpenshpFile(std::string_view name, std::string_view family, std::string_view mode, shpL_& shp,
                 dbfL_& dbf);

/// Opens for output a set for each letter of `shapeFamilies`: P points, L lines, R regions, in
/// either case. A family named twice is opened once; another letter stops the run.
void shpOpenFamilies(std::string_view name, std::string_view shapeFamilies, GisLayer& layer);

/// Closes whatever files of the layer's sets are still open.
void shpCloseFiles(GisLayer& layer);

}  // namespace vantelgis
