#pragma once

#include <cmath>
#include <cstdint>

namespace vantelgis {

/// In place of a point's index: no point.
inline constexpr std::int32_t kNoPoint = -1;

/// A point that gives its elevation to the vertices that lie on it.
struct BreaklinePoint {
    double x = 0;
    double y = 0;
    float z = 0;
    /// The next higher point in the same bucket of the search, or, below kNoPoint, a tree of all
    /// that are higher.
    std::int32_t next = kNoPoint;
};

/// How near a point must be to a vertex, along each axis: 0.001 as 32 bits hold it.
inline constexpr double kSnapTolerance = static_cast<double>(0.001F);

/// True when a vertex at `x`, `y` lies on the point: a square, and its edge is too far.
inline bool liesOn(const BreaklinePoint& point, double x, double y) {
    return std::abs(point.x - x) < kSnapTolerance && std::abs(point.y - y) < kSnapTolerance;
}

}  // namespace vantelgis
