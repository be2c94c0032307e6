#pragma once

#include <string_view>

#include "gis/layer_table.h"
#include "gis/report.h"

namespace vantelgis {

/// Opens the pair of a MapInfo Interchange layer, whichever of its two names, or the bare stem, is
/// given: the .mif into `mifUnit`, the .mid into `midUnit`.
void gisMifOpen(std::string_view name, std::string_view mode, mifL_& layer);

/// What is told when the .mif, or a record of the .mid, can't be written.
inline constexpr std::string_view kMifWriteFailure =
    "ERROR 0439 - Writing .mif file object coordinates.";
MessageLine midWriteFailure(const mifL_& layer);

/// Closes both files, which are complete as they stand. ERROR 0439 or 0254 when what was written to
/// one may be lost.
void gisMifClose(mifL_& layer);

}  // namespace vantelgis
