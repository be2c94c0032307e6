#include "geometry/angle.h"

#include <cmath>
#include <numbers>

namespace vantelgis {

namespace {

// The arc tangent is taken in 64 bits and narrowed once: the run-times of two platforms differ in
// the last bit of a 32-bit one.
float directionInDegrees(double dx, double dy) {
    return static_cast<float>(std::atan2(dy, dx) * (180.0 / std::numbers::pi));
}

}  // namespace

extern "C" float ANGLE2D(double ax, double ay, double bx, double by, double cx, double cy,
                         double dx, double dy) {
    constexpr double kSmallestRun = 1e-6;
    if (std::fabs(bx - ax) < kSmallestRun || std::fabs(dx - cx) < kSmallestRun) return 0;
    const float angle =
        std::fabs(directionInDegrees(bx - ax, by - ay) - directionInDegrees(dx - cx, dy - cy));
    return angle <= 180.0F ? angle : 360.0F - angle;
}

}  // namespace vantelgis
