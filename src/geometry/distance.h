#pragma once

#include <cmath>

namespace vantelgis {

// Coordinates of a real site need 64 bits, the short lengths between them do not: differences are
// taken in the precision of the coordinates and narrowed, and everything behind is 32-bit
// arithmetic, so that both forms of a routine agree on whatever 32 bits can hold.

/// Differences below this count as none.
inline constexpr float kSmallestLength = 1e-6F;

/// `a` - `b`, narrowed.
template <typename Coordinate>
float difference(Coordinate a, Coordinate b) {
    return static_cast<float>(a - b);
}

/// The arithmetic of DISTANCE and DISTANCE_8, in the header for loops over vertices.
template <typename Coordinate>
float distanceBetween(Coordinate x1, Coordinate y1, Coordinate x2, Coordinate y2) {
    const float dx = std::fabs(difference(x2, x1));
    const float dy = std::fabs(difference(y2, y1));
    if (dx < kSmallestLength && dy < kSmallestLength) return 0;
    return std::sqrt(dx * dx + dy * dy);
}

/// The distance between two points; 0 when they are nearer than 1e-6 along both axes.
extern "C" float DISTANCE(float x1, float y1, float x2, float y2);
extern "C" float DISTANCE_8(double x1, double y1, double x2, double y2);

/// The length of a vector; 0 when neither component is beyond 1e-6.
extern "C" float VECTOR_MAGNITUDE(float vx, float vy);

/// True when the points differ by less than `tolerance` along each axis; a difference of exactly
/// `tolerance` is too much.
extern "C" bool SAME_POINT(float x1, float y1, float x2, float y2, float tolerance);
extern "C" bool SAME_POINT_8(double x1, double y1, double x2, double y2, double tolerance);

}  // namespace vantelgis
