#pragma once

#include "geometry/distance.h"

namespace vantelgis {

/// The arithmetic of SAME_SIDE and SAME_SIDE_8.
template <typename Coordinate>
float sameSide(Coordinate ax, Coordinate ay, Coordinate bx, Coordinate by, Coordinate cx,
               Coordinate cy, Coordinate dx, Coordinate dy) {
    const float ux = difference(bx, ax);
    const float uy = difference(by, ay);
    // c is seen from a and d from b: both ends of the line give the same sign.
    return (difference(cy, ay) * ux - difference(cx, ax) * uy) *
           (ux * difference(dy, by) - uy * difference(dx, bx));
}

/// Tells by its sign on which sides of the endless line a-b the points c and d lie: positive when
/// on the same side, negative when on opposite ones, 0 when at least one is on the line.
extern "C" float SAME_SIDE(float ax, float ay, float bx, float by, float cx, float cy, float dx,
                           float dy);
extern "C" float SAME_SIDE_8(double ax, double ay, double bx, double by, double cx, double cy,
                             double dx, double dy);

/// True when p lies on the endless line a-b.
extern "C" bool INTERSECT_POINT(float ax, float ay, float bx, float by, float px, float py);

}  // namespace vantelgis
