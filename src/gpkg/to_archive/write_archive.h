#pragma once

#include <string>

#include "gpkg/options.h"
#include "gpkg/package/database.h"
#include "gpkg/to_archive/archive_strings_writer.h"
#include "gpkg/wkt.h"

namespace vantelgis::gpkg {

struct WrittenArchive {
    WriteCounts counts;
    CoordinateSystem system;  ///< of the layers
};

/// Writes the layers of a package that the command line asks for as an archive in UTF-8, grouped by
/// model. Fails with the reason; the file is then worth nothing.
WrittenArchive writeArchive(Database& database, const Options& options, const std::string& file);

}  // namespace vantelgis::gpkg
