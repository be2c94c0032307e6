#pragma once

#include <string_view>

namespace vantelgis::gpkg {

/// What --help prints.
extern const std::string_view kHelp;

}  // namespace vantelgis::gpkg
