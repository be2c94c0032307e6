#pragma once

#include <cstdint>

#include "geometry/side.h"

namespace vantelgis {

/// The arithmetic of INTERSECT_LINE and INTERSECT_LINE_8.
template <typename Coordinate>
bool intersectLine(Coordinate ax, Coordinate ay, Coordinate bx, Coordinate by, Coordinate cx,
                   Coordinate cy, Coordinate dx, Coordinate dy) {
    return sameSide(ax, ay, bx, by, cx, cy, dx, dy) <= 0 &&
           sameSide(cx, cy, dx, dy, ax, ay, bx, by) <= 0;
}

/// True when the segments a-b and c-d meet. Touching counts, and so do any two segments of one
/// line, however far apart.
extern "C" bool INTERSECT_LINE(float ax, float ay, float bx, float by, float cx, float cy, float dx,
                               float dy);
extern "C" bool INTERSECT_LINE_8(double ax, double ay, double bx, double by, double cx, double cy,
                                 double dx, double dy);

/// Where the endless lines 1-2 and 3-4 cross: 3 on both segments, 1 on segment 1-2 alone, 2 on
/// segment 3-4 alone, 4 on neither; 0 for parallel lines, -1 when they coincide. A segment's start
/// (1, 3) is not on it, its end (2, 4) is, so that a chain of segments is met once at each joint.
extern "C" std::int32_t INTERSECT_LINE_V2(float x1, float y1, float x2, float y2, float x3,
                                          float y3, float x4, float y4);
extern "C" std::int32_t INTERSECT_LINE_V2_8(double x1, double y1, double x2, double y2, double x3,
                                            double y3, double x4, double y4);

/// The point where the endless lines 1-2 and 3-4 cross. False for parallel lines, which leaves `xi`
/// and `yi` as they were. Slopes are compared exactly: nearly parallel lines cross far away.
extern "C" bool INTERSECTION_POINT(float x1, float y1, float x2, float y2, float x3, float y3,
                                   float x4, float y4, float& xi, float& yi);
extern "C" bool INTERSECTION_POINT_8(double x1, double y1, double x2, double y2, double x3,
                                     double y3, double x4, double y4, double& xi, double& yi);

}  // namespace vantelgis
