#pragma once

#include <cmath>

namespace vantelgis {

// Coordinates of a real site need 64 bits, the short lengths between them do not: differences are
// taken in the precision of the coordinates and narrowed, and everything behind is 32-bit
// arithmetic, so that both precisions agree on whatever 32 bits can hold. Lengths are in the unit
// of the coordinates. In a header, as loops over vertices call it.

/// Differences below this count as none.
inline constexpr float kSmallestLength = 1e-6F;

/// `a` - `b`, narrowed.
template <typename Coordinate>
float difference(Coordinate a, Coordinate b) {
    return static_cast<float>(a - b);
}

/// The distance between two points; 0 when they are nearer than kSmallestLength along both axes.
template <typename Coordinate>
float distanceBetween(Coordinate x1, Coordinate y1, Coordinate x2, Coordinate y2) {
    const float dx = std::fabs(difference(x2, x1));
    const float dy = std::fabs(difference(y2, y1));
    if (dx < kSmallestLength && dy < kSmallestLength) return 0;
    return std::sqrt(dx * dx + dy * dy);
}

/// The points differ by less than `tolerance` along each axis; a difference of exactly `tolerance`
/// is too much.
template <typename Coordinate>
bool samePoint(Coordinate x1, Coordinate y1, Coordinate x2, Coordinate y2, Coordinate tolerance) {
    return std::fabs(x1 - x2) < tolerance && std::fabs(y1 - y2) < tolerance;
}

}  // namespace vantelgis
