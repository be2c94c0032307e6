#pragma once

#include <string>
#include <string_view>

#include "gpkg/wkt.h"

namespace vantelgis::gpkg {

/// The coordinate system of an archive: of the file `named`, if it isn't empty, else of the first
/// of NAME.prj, Header.prj and Projection.prj beside the archive, else undefined. Fails when the
/// file that counts holds no well-known text.
[[nodiscard]] CoordinateSystem coordinateSystemOf(std::string_view archive, std::string_view named);

}  // namespace vantelgis::gpkg
