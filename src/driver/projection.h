#pragma once

#include "convert/run_settings.h"

namespace vantelgis {

/// Finds the coordinate-system text that the run's output will carry: a CoordSys line into
/// gisMifCoordSys, a PROJCS line into gisShpProjCS, from a file that the command line names or that
/// lies beside File 1. Runs when `useMif` or `useShp` is set. The file stays open until the end of
/// the run.
void searchProjection(const RunSettings& run);

}  // namespace vantelgis
