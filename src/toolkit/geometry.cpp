#include "toolkit/geometry.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <string_view>

#include "geometry/crossing.h"
#include "geometry/distance.h"
#include "geometry/polygon.h"
#include "run/stop.h"
#include "text/joined.h"

namespace vantelgis {

namespace {

// The arc tangent is taken in 64 bits and narrowed once: the run-times of two platforms differ in
// the last bit of a 32-bit one.
float directionInDegrees(double dx, double dy) {
    return static_cast<float>(std::atan2(dy, dx) * (180.0 / std::numbers::pi));
}

// `which` of the two forms a host has called.
template <typename Coordinate>
bool isInside(Coordinate x, Coordinate y, const Region<Coordinate>& region,
              std::string_view which) {
    if (region.n < 3) return false;
    const Location location = locate(x, y, region);
    if (location == Location::unknown) {
        stopWith(
            "", Joined<256>("Invalid number of polygons in region sent to inside_polygon routine [",
                            which, "] - contact ", SUPPORT_ADDRESS));
    }
    return location == Location::inside;
}

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

float DISTANCE(float x1, float y1, float x2, float y2) {
    return distanceBetween(x1, y1, x2, y2);
}

float DISTANCE_8(double x1, double y1, double x2, double y2) {
    return distanceBetween(x1, y1, x2, y2);
}

float VECTOR_MAGNITUDE(float vx, float vy) {
    if (!(std::fabs(vx) > kSmallestLength || std::fabs(vy) > kSmallestLength)) return 0;
    return std::sqrt(vx * vx + vy * vy);
}

bool SAME_POINT(float x1, float y1, float x2, float y2, float tolerance) {
    return samePoint(x1, y1, x2, y2, tolerance);
}

bool SAME_POINT_8(double x1, double y1, double x2, double y2, double tolerance) {
    return samePoint(x1, y1, x2, y2, tolerance);
}

float ANGLE2D(double ax, double ay, double bx, double by, double cx, double cy, double dx,
              double dy) {
    constexpr double kSmallestRun = 1e-6;
    if (std::fabs(bx - ax) < kSmallestRun || std::fabs(dx - cx) < kSmallestRun) return 0;
    const float angle =
        std::fabs(directionInDegrees(bx - ax, by - ay) - directionInDegrees(dx - cx, dy - cy));
    return angle <= 180.0F ? angle : 360.0F - angle;
}

float SAME_SIDE(float ax, float ay, float bx, float by, float cx, float cy, float dx, float dy) {
    return sameSide(ax, ay, bx, by, cx, cy, dx, dy);
}

float SAME_SIDE_8(double ax, double ay, double bx, double by, double cx, double cy, double dx,
                  double dy) {
    return sameSide(ax, ay, bx, by, cx, cy, dx, dy);
}

bool INTERSECT_POINT(float ax, float ay, float bx, float by, float px, float py) {
    return sameSide(ax, ay, bx, by, px, py, px, py) == 0;
}

bool INTERSECT_LINE(float ax, float ay, float bx, float by, float cx, float cy, float dx,
                    float dy) {
    return segmentsMeet(ax, ay, bx, by, cx, cy, dx, dy);
}

bool INTERSECT_LINE_8(double ax, double ay, double bx, double by, double cx, double cy, double dx,
                      double dy) {
    return segmentsMeet(ax, ay, bx, by, cx, cy, dx, dy);
}

std::int32_t INTERSECT_LINE_V2(float x1, float y1, float x2, float y2, float x3, float y3, float x4,
                               float y4) {
    return crossingCode(x1, y1, x2, y2, x3, y3, x4, y4);
}

std::int32_t INTERSECT_LINE_V2_8(double x1, double y1, double x2, double y2, double x3, double y3,
                                 double x4, double y4) {
    return crossingCode(x1, y1, x2, y2, x3, y3, x4, y4);
}

bool INTERSECTION_POINT(float x1, float y1, float x2, float y2, float x3, float y3, float x4,
                        float y4, float& xi, float& yi) {
    return crossingPoint(x1, y1, x2, y2, x3, y3, x4, y4, xi, yi);
}

bool INTERSECTION_POINT_8(double x1, double y1, double x2, double y2, double x3, double y3,
                          double x4, double y4, double& xi, double& yi) {
    return crossingPoint(x1, y1, x2, y2, x3, y3, x4, y4, xi, yi);
}

bool INSIDE_POLYGON(float x, float y, const float* px, const float* py, std::int32_t n, float xmin,
                    const std::int32_t* ends, std::int32_t endCount) {
    return isInside<float>(x, y, {px, py, n, ends, endCount, xmin}, "1");
}

bool INSIDE_POLYGON_8(double x, double y, const double* px, const double* py, std::int32_t n,
                      double xmin, const std::int32_t* ends, std::int32_t endCount) {
    return isInside<double>(x, y, {px, py, n, ends, endCount, xmin}, "2");
}

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
