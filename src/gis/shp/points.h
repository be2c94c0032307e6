#pragma once

#include <cstddef>
#include <cstdint>

#include "run/unit_reading.h"

namespace vantelgis {

/// Bytes of a point in a .shp: x and y, 64-bit floats, low byte first.
inline constexpr std::int64_t kPointBytes = 16;

/// Reads `count` points into `x` and `y`; gives what the first read that failed gave.
ReadResult shpReadPoints(int unit, double* x, double* y, std::size_t count);

/// Writes `count` points from `x` and `y`.
void shpWritePoints(int unit, const double* x, const double* y, std::size_t count);

}  // namespace vantelgis
