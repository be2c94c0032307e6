#include "toolkit/geometry.h"

#include <array>
#include <cstddef>
#include <span>

#include "geometry/crossing.h"
#include "geometry/distance.h"
#include "geometry/polygon.h"
#include "text/limits.h"

namespace vantelgis {

namespace {

// The elevation at `part` of the `whole` way from z1 to z2; midway where there is no way.
float elevationAlong(float z1, float z2, float part, float whole) {
    float dz = z2 - z1;
    dz = whole < kSmallestLength ? dz * 0.5F : dz * part / whole;
    return z1 + dz;
}

template <typename Coordinate>
bool interpolateTriangle(Coordinate x, Coordinate y, const Coordinate* tx, const Coordinate* ty,
                         const float* tz, float& z) {
    Coordinate xi = 0, yi = 0;
    if (!crossingPoint(tx[0], ty[0], tx[1], ty[1], tx[2], ty[2], x, y, xi, yi)) {
        z = kNullElevation;
        return false;
    }
    const float zi = elevationAlong(tz[0], tz[1], distanceBetween(tx[0], ty[0], xi, yi),
                                    distanceBetween(tx[0], ty[0], tx[1], ty[1]));
    // From the third corner towards the line of the other two.
    z = elevationAlong(tz[2], zi, distanceBetween(tx[2], ty[2], x, y),
                       distanceBetween(tx[2], ty[2], xi, yi));
    return true;
}

struct Triangle {
    std::array<double, 3> x, y;
    std::array<float, 3> z;
};

Triangle triangleOf(const double* ex, const double* ey, const float* ez,
                    const std::array<std::size_t, 3>& corners) {
    Triangle triangle{};
    for (std::size_t i = 0; i < 3; ++i) {
        triangle.x[i] = ex[corners[i]];
        triangle.y[i] = ey[corners[i]];
        triangle.z[i] = ez[corners[i]];
    }
    return triangle;
}

bool interpolateInside(double x, double y, const Triangle& t, double xmin, float& z) {
    const double px[] = {t.x[0], t.x[1], t.x[2], t.x[0], t.x[1]};
    const double py[] = {t.y[0], t.y[1], t.y[2], t.y[0], t.y[1]};
    const std::int32_t end = 4;
    return locate<double>(x, y, {px, py, 5, &end, 1, xmin}) == Location::inside &&
           interpolateTriangle(x, y, t.x.data(), t.y.data(), t.z.data(), z);
}

// The triangles of an element, as corners from 0: each leaves one corner out, in turn.
constexpr std::array<std::size_t, 3> kOfThree[] = {{0, 1, 2}};
constexpr std::array<std::size_t, 3> kOfFour[] = {{1, 2, 3}, {0, 2, 3}, {0, 1, 3}, {0, 1, 2}};

}  // namespace

bool INTERPOLATE_TRIANGLE(float x, float y, const float tx[3], const float ty[3], const float tz[3],
                          float& z) {
    return interpolateTriangle(x, y, tx, ty, tz, z);
}

bool INTERPOLATE_TRIANGLE_8(double x, double y, const double tx[3], const double ty[3],
                            const float tz[3], float& z) {
    return interpolateTriangle(x, y, tx, ty, tz, z);
}

bool INTERPOLATE_ELEMENT_8(double x, double y, const double* ex, const double* ey, const float* ez,
                           std::int32_t corners, double xmin, float& z) {
    std::span<const std::array<std::size_t, 3>> triangles;
    if (corners == 3) triangles = kOfThree;
    if (corners == 4) triangles = kOfFour;

    float sum = 0;
    int count = 0;
    for (const auto& triangle : triangles) {
        float zHere = 0;
        if (!interpolateInside(x, y, triangleOf(ex, ey, ez, triangle), xmin, zHere)) continue;
        sum += zHere;
        ++count;
    }
    z = count > 0 ? sum / static_cast<float>(count) : kNullElevation;
    return count > 0;
}

}  // namespace vantelgis
