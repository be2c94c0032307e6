#pragma once

#include "gpkg/options.h"

namespace vantelgis::gpkg {

/// Makes a package of one archive or several, or adds them to one that is there. What stood under
/// its name stays as it is unless the new one is whole. Fails with the reason.
void archivesToPackage(const Options& options);

}  // namespace vantelgis::gpkg
