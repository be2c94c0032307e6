#pragma once

#include <string_view>

#include "gis/records.h"

namespace vantelgis {

/// Opens the pair of a MapInfo Interchange layer, whichever of its two names, or the bare stem, is
/// given: the .mif into `mifUnit`, the .mid into `midUnit`.
void gisMifOpen(std::string_view name, std::string_view mode, mifL_& layer);

}  // namespace vantelgis
