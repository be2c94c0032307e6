#pragma once

#include "gpkg/package/database.h"

namespace vantelgis::gpkg {

/// Enters into `layer_styles`, where QGIS looks for it, how the layers of this program are drawn:
/// each string in the colour that its archive names (an unknown one in grey, and said in a note),
/// with its name beside it at near scales, and marks where elevations are missing.
void enterStyles(Database& database);

}  // namespace vantelgis::gpkg
