#pragma once

#include "gpkg/options.h"

namespace vantelgis::gpkg {

/// Writes the lines of a package as strings of an archive. What stood under its name stays as it is
/// unless the new one is whole. Fails with the reason.
void packageToArchive(const Options& options);

}  // namespace vantelgis::gpkg
