#pragma once

#include <string_view>

#include "gpkg/package/database.h"

namespace vantelgis::gpkg {

/// Fails when a file isn't a GeoPackage.
void requirePackage(std::string_view file);

/// Fails when a package that would be replaced holds layers that no archive can give back. A file
/// that is no package is nobody's layers.
void refuseForeignLayers(std::string_view file);

/// Makes the tables that a package may leave out and this program needs, and fails when the layers
/// named like those of this program are somebody else's.
void requireTables(Database& database);

}  // namespace vantelgis::gpkg
