#include "toolkit/geometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vantelgis {

namespace {

// The number of the cell that a coordinate falls in, cut towards zero before it is counted from 1.
// What no integer can hold (a tiny cell size) goes to the nearest one, what is no number to 0.
std::int32_t cellNumber(float coordinate, float cellSize) {
    using Limits = std::numeric_limits<std::int32_t>;
    const double number = std::trunc(static_cast<double>(coordinate / cellSize)) + 1;
    if (std::isnan(number)) return 0;
    return static_cast<std::int32_t>(
        std::clamp(number, static_cast<double>(Limits::min()), static_cast<double>(Limits::max())));
}

}  // namespace

void GEO_SHIFT(const double* x, const double* y, std::int32_t n, double x0, double y0, double angle,
               float* u, float* v) {
    const double cosine = std::cos(angle), sine = std::sin(angle);
    for (std::int32_t i = 0; i < n; ++i) {
        const double dx = x[i] - x0, dy = y[i] - y0;
        u[i] = static_cast<float>(cosine * dx + sine * dy);
        v[i] = static_cast<float>(cosine * dy - sine * dx);
    }
}

void SET_SUB_GRID_AREA(const float* x, const float* y, std::int32_t n, float cellSize,
                       std::int32_t rowLimit, std::int32_t columnLimit, std::int32_t& firstRow,
                       std::int32_t& firstColumn, std::int32_t& lastRow, std::int32_t& lastColumn,
                       float& xmin, float& ymin, float& xmax, float& ymax) {
    if (n < 1) return;
    const auto [left, right] = std::minmax_element(x, x + n);
    const auto [bottom, top] = std::minmax_element(y, y + n);
    xmin = *left;
    xmax = *right;
    ymin = *bottom;
    ymax = *top;
    firstColumn = std::max(cellNumber(xmin, cellSize), 0);
    lastColumn = std::min(cellNumber(xmax, cellSize), columnLimit);
    firstRow = std::max(cellNumber(ymin, cellSize), 0);
    lastRow = std::min(cellNumber(ymax, cellSize), rowLimit);
}

}  // namespace vantelgis
