#pragma once

#include "convert/run_settings.h"

namespace vantelgis {

/// Finds the coordinate-system text that the run's output will carry: a CoordSys line into
/// gisMifCoordSys, a PROJCS line into gisShpProjCS, from a file that the command line names or that
/// lies in the folder of File 1. Does nothing unless `useMif` or `useShp` is set. The file stays
/// open until the end of the run. Where there is none a .mif gets non-earth coordinates, after a
/// warning that waits, and a shapefile stops the run, but for one with a File 2, which does
/// without; a file without such a line stops it as well.
void searchProjection(const RunSettings& run);

}  // namespace vantelgis
