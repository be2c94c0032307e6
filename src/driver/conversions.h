#pragma once

#include "driver/run_settings.h"

namespace vantelgis {

// The conversions from GIS to the archive. Each reads the layer of File 1 (the second also File 2),
// writes the run's output file and closes what it opened.

/// Lines and polylines become `string 2d` breaklines.
void convertBreaklines2d(const RunSettings& settings);

/// Points with elevations and polylines become `string 3d` breaklines with interpolated elevations,
/// and two check layers.
void convertBreaklines3d(const RunSettings& settings);

/// Points with results become a coordinate block and, for vectors, symbols.
void convertResults(const RunSettings& settings);

}  // namespace vantelgis
