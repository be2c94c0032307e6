#include "geometry/distance.h"

namespace vantelgis {

namespace {

template <typename Coordinate>
bool samePoint(Coordinate x1, Coordinate y1, Coordinate x2, Coordinate y2, Coordinate tolerance) {
    return std::fabs(x1 - x2) < tolerance && std::fabs(y1 - y2) < tolerance;
}

}  // namespace

extern "C" float DISTANCE(float x1, float y1, float x2, float y2) {
    return distanceBetween(x1, y1, x2, y2);
}

extern "C" float DISTANCE_8(double x1, double y1, double x2, double y2) {
    return distanceBetween(x1, y1, x2, y2);
}

extern "C" float VECTOR_MAGNITUDE(float vx, float vy) {
    if (!(std::fabs(vx) > kSmallestLength || std::fabs(vy) > kSmallestLength)) return 0;
    return std::sqrt(vx * vx + vy * vy);
}

extern "C" bool SAME_POINT(float x1, float y1, float x2, float y2, float tolerance) {
    return samePoint(x1, y1, x2, y2, tolerance);
}

extern "C" bool SAME_POINT_8(double x1, double y1, double x2, double y2, double tolerance) {
    return samePoint(x1, y1, x2, y2, tolerance);
}

}  // namespace vantelgis
