#include "gpkg/to_archive/package_to_archive.h"
namespace vantelgis::gpkg {
void packageToArchive(const Options&) {}
}  // namespace vantelgis::gpkg
