#pragma once

#include <cstdint>

#include "geometry/distance.h"

namespace vantelgis {

/// Says by its sign on which sides of the endless line a-b the points c and d lie: positive when
/// on the same side, negative when on opposite ones, 0 when at least one is on the line.
template <typename Coordinate>
float sameSide(Coordinate ax, Coordinate ay, Coordinate bx, Coordinate by, Coordinate cx,
               Coordinate cy, Coordinate dx, Coordinate dy) {
    const float ux = difference(bx, ax);
    const float uy = difference(by, ay);
    // c is seen from a and d from b: both ends of the line give the same sign.
    return (difference(cy, ay) * ux - difference(cx, ax) * uy) *
           (ux * difference(dy, by) - uy * difference(dx, bx));
}

/// The segments a-b and c-d meet. Touching counts, and so do any two segments of one line, however
/// far apart: all four points are on that line, which counts as touching.
template <typename Coordinate>
bool segmentsMeet(Coordinate ax, Coordinate ay, Coordinate bx, Coordinate by, Coordinate cx,
                  Coordinate cy, Coordinate dx, Coordinate dy) {
    return sameSide(ax, ay, bx, by, cx, cy, dx, dy) <= 0 &&
           sameSide(cx, cy, dx, dy, ax, ay, bx, by) <= 0;
}

/// Where the endless lines 1-2 and 3-4 cross: 3 on both segments, 1 on segment 1-2 alone, 2 on
/// segment 3-4 alone, 4 on neither; 0 for parallel lines, -1 when they coincide. A segment's start
/// (1, 3) is not on it, its end (2, 4) is, so that a chain of segments is met once at each joint.
template <typename Coordinate>
std::int32_t crossingCode(Coordinate x1, Coordinate y1, Coordinate x2, Coordinate y2, Coordinate x3,
                          Coordinate y3, Coordinate x4, Coordinate y4) {
    const Coordinate ux = x2 - x1, uy = y2 - y1;
    const Coordinate vx = x4 - x3, vy = y4 - y3;
    const Coordinate wx = x1 - x3, wy = y1 - y3;
    const Coordinate denominator = vy * ux - vx * uy;
    const Coordinate numeratorA = vx * wy - vy * wx;
    const Coordinate numeratorB = ux * wy - wx * uy;
    if (denominator == 0) return numeratorA == 0 && numeratorB == 0 ? -1 : 0;

    const auto isInside = [](Coordinate share) { return share > 0 && share <= 1; };
    const bool insideA = isInside(numeratorA / denominator);
    const bool insideB = isInside(numeratorB / denominator);
    if (insideA && insideB) return 3;
    if (insideA) return 1;
    return insideB ? 2 : 4;
}

/// The point where the endless lines 1-2 and 3-4 cross. False for parallel lines, which leaves `xi`
/// and `yi` as they were. Slopes are compared exactly: nearly parallel lines cross far away.
template <typename Coordinate>
bool crossingPoint(Coordinate x1, Coordinate y1, Coordinate x2, Coordinate y2, Coordinate x3,
                   Coordinate y3, Coordinate x4, Coordinate y4, Coordinate& xi, Coordinate& yi) {
    if (x1 == x2) {
        if (x3 == x4) return false;
        yi = y3 + (y4 - y3) / (x4 - x3) * (x1 - x3);
        xi = x1;
        return true;
    }
    const Coordinate slope1 = (y2 - y1) / (x2 - x1);
    if (x3 == x4) {
        yi = y1 + slope1 * (x3 - x1);
        xi = x3;
        return true;
    }
    const Coordinate slope2 = (y4 - y3) / (x4 - x3);
    if (slope1 == slope2) return false;
    xi = (y1 - y3 - x1 * slope1 + slope2 * x3) / (slope2 - slope1);
    yi = y3 + slope2 * (xi - x3);
    return true;
}

}  // namespace vantelgis
