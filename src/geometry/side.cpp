#include "geometry/side.h"

namespace vantelgis {

extern "C" float SAME_SIDE(float ax, float ay, float bx, float by, float cx, float cy, float dx,
                           float dy) {
    return sameSide(ax, ay, bx, by, cx, cy, dx, dy);
}

extern "C" float SAME_SIDE_8(double ax, double ay, double bx, double by, double cx, double cy,
                             double dx, double dy) {
    return sameSide(ax, ay, bx, by, cx, cy, dx, dy);
}

extern "C" bool INTERSECT_POINT(float ax, float ay, float bx, float by, float px, float py) {
    return sameSide(ax, ay, bx, by, px, py, px, py) == 0;
}

}  // namespace vantelgis
