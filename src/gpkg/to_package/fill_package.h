#pragma once

#include <string>
#include <vector>

#include "gpkg/options.h"
#include "gpkg/package/database.h"
#include "gpkg/to_package/archive_import.h"
#include "gpkg/wkt.h"

namespace vantelgis::gpkg {

/// An archive and what the package calls it.
struct ArchiveSource {
    std::string file;
    std::string name;
};

/// Puts archives into a package that belongs to this run alone: an empty database, or a copy of a
/// package, in which they replace what was taken from archives of their names. Files on the way lie
/// beside `scratchName`. Fails with the reason.
ImportCounts fillPackage(Database& database, const std::vector<ArchiveSource>& sources,
                         const CoordinateSystem& system, const Options& options,
                         const std::string& scratchName);

}  // namespace vantelgis::gpkg
