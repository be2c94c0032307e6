#pragma once

#include <cstdint>

namespace vantelgis {

/// Moves the origin of `n` points to (x0, y0) and turns the axes by `angle` radians: the points in
/// the new system in `u` and `v`, which have n places each. Nothing is written if `n` is below 1.
extern "C" void GEO_SHIFT(const double* x, const double* y, std::int32_t n, double x0, double y0,
                          double angle, float* u, float* v);

/// The bounding box of `n` points and the rows and columns of a grid of square cells that it
/// covers. Cells are numbered from 1 at the origin; the first ones are not below 0 and the last
/// ones not above the limits. The outputs stay as they were if `n` is below 1.
extern "C" void SET_SUB_GRID_AREA(const float* x, const float* y, std::int32_t n, float cellSize,
                                  std::int32_t rowLimit, std::int32_t columnLimit,
                                  std::int32_t& firstRow, std::int32_t& firstColumn,
                                  std::int32_t& lastRow, std::int32_t& lastColumn, float& xmin,
                                  float& ymin, float& xmax, float& ymax);

}  // namespace vantelgis
