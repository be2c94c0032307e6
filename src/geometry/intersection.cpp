#include "geometry/intersection.h"

namespace vantelgis {

namespace {

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

}  // namespace

extern "C" bool INTERSECT_LINE(float ax, float ay, float bx, float by, float cx, float cy, float dx,
                               float dy) {
    return intersectLine(ax, ay, bx, by, cx, cy, dx, dy);
}

extern "C" bool INTERSECT_LINE_8(double ax, double ay, double bx, double by, double cx, double cy,
                                 double dx, double dy) {
    return intersectLine(ax, ay, bx, by, cx, cy, dx, dy);
}

extern "C" std::int32_t INTERSECT_LINE_V2(float x1, float y1, float x2, float y2, float x3,
                                          float y3, float x4, float y4) {
    return crossingCode(x1, y1, x2, y2, x3, y3, x4, y4);
}

extern "C" std::int32_t INTERSECT_LINE_V2_8(double x1, double y1, double x2, double y2, double x3,
                                            double y3, double x4, double y4) {
    return crossingCode(x1, y1, x2, y2, x3, y3, x4, y4);
}

extern "C" bool INTERSECTION_POINT(float x1, float y1, float x2, float y2, float x3, float y3,
                                   float x4, float y4, float& xi, float& yi) {
    return crossingPoint(x1, y1, x2, y2, x3, y3, x4, y4, xi, yi);
}

extern "C" bool INTERSECTION_POINT_8(double x1, double y1, double x2, double y2, double x3,
                                     double y3, double x4, double y4, double& xi, double& yi) {
    return crossingPoint(x1, y1, x2, y2, x3, y3, x4, y4, xi, yi);
}

}  // namespace vantelgis
