#pragma once

#include "convert/run_settings.h"

namespace vantelgis {

// The five conversions. Each reads File 1 (the second also File 2), writes the run's output and
// closes what it opened, but for an archive that it reads, which stays open until the end of the
// run. What fails stops the run.

/// Lines and polylines become `string 2d` breaklines.
void convertBreaklines2d(const RunSettings& settings);

/// Points with elevations and polylines become `string 3d` breaklines with interpolated elevations,
/// and two check layers.
void convertBreaklines3d(const RunSettings& settings);

/// Points with results become a coordinate block and, for vectors, symbols.
void convertResults(const RunSettings& settings);

/// Every string of an archive becomes a polyline, and each of its vertices that has an elevation a
/// point. The extension of the output decides the format.
void convertStringsToGis(const RunSettings& settings);

/// "hipdata" blocks are converted as well, set by -hip.
extern bool includeHip;

/// Every 3d string of an archive becomes a cross-section: a .csv file of chainages and elevations
/// beside the archive, a polyline that names it, and a point for each vertex that has an elevation,
/// in a layer of its own.
void convertCrossSections(const RunSettings& settings);

}  // namespace vantelgis
