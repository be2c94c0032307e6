#include "geometry/inside_polygon.h"

#include <string_view>

#include "geometry/intersection.h"
#include "run/console.h"
#include "run/stop.h"

namespace vantelgis {

namespace {

template <typename Coordinate>
struct Vertices {
    const Coordinate* px;
    const Coordinate* py;
    [[nodiscard]] Coordinate x(std::int64_t position) const { return px[position - 1]; }
    [[nodiscard]] Coordinate y(std::int64_t position) const { return py[position - 1]; }
};

/// The ray runs from the point towards smaller x, at the point's own height.
template <typename Coordinate>
struct Ray {
    Coordinate x;
    Coordinate y;
    Coordinate farX;
};

/// The y that the boundary comes from when it enters a ring's first vertex: that of the last vertex
/// before the repeat that is off the ray. `y` itself when there is none.
template <typename Coordinate>
Coordinate enteringY(const Vertices<Coordinate>& at, std::int64_t first, std::int64_t repeat,
                     Coordinate y) {
    if (at.y(first) != y) return y;  // only asked for where the ray meets the first vertex
    std::int64_t position = repeat - 1;
    while (position > first && at.y(position) == y) --position;
    return at.y(position);
}

/// Whether the ray crosses the edge that ends at position `i`. A vertex on the ray belongs to the
/// edge that leaves it, and counts if the boundary goes on to the other side of the ray.
template <typename Coordinate>
bool crosses(const Ray<Coordinate>& ray, const Vertices<Coordinate>& at, std::int64_t i,
             Coordinate& lastY) {
    const Coordinate fromX = at.x(i - 1), fromY = at.y(i - 1), toX = at.x(i), toY = at.y(i);
    if (fromY == toY) return false;
    if (toY == ray.y) {
        lastY = fromY;
        return false;
    }
    if (fromY == ray.y && ray.x >= fromX) return (lastY - ray.y) * (toY - ray.y) < 0;
    return intersectLine(ray.x, ray.y, ray.farX, ray.y, fromX, fromY, toX, toY);
}

[[noreturn]] void stopInvalidRegion(std::string_view which) {
    consoleLine();
    consoleLine("Invalid number of polygons in region sent to inside_polygon routine [", which,
                "] - contact ", SUPPORT_ADDRESS);
    EXITS();
}

template <typename Coordinate>
bool insidePolygon(const Ray<Coordinate>& ray, const Vertices<Coordinate>& at, std::int64_t n,
                   const std::int32_t* ends, std::int32_t endCount, std::string_view which) {
    const std::int64_t last = n - 1;
    bool inside = false;
    std::int32_t ring = 0;
    for (std::int64_t first = 1; first < last; ++ring) {
        if (ring >= endCount) stopInvalidRegion(which);
        // An end that the walk never meets leaves all the rest to this ring.
        const std::int64_t end = ends[ring];
        const std::int64_t repeat = end > first && end < last ? end : last;
        Coordinate lastY = enteringY(at, first, repeat, ray.y);
        for (std::int64_t i = first + 1; i <= repeat; ++i) {
            if (crosses(ray, at, i, lastY)) inside = !inside;
        }
        first = repeat + 2;
    }
    return inside;
}

}  // namespace

extern "C" bool INSIDE_POLYGON(float x, float y, const float* px, const float* py, std::int32_t n,
                               float xmin, const std::int32_t* ends, std::int32_t endCount) {
    if (n < 3) return false;
    return insidePolygon<float>({x, y, xmin - 10}, {px, py}, n, ends, endCount, "1");
}

extern "C" bool INSIDE_POLYGON_8(double x, double y, const double* px, const double* py,
                                 std::int32_t n, double xmin, const std::int32_t* ends,
                                 std::int32_t endCount) {
    if (n < 3) return false;
    return insidePolygon<double>({x, y, xmin - 10}, {px, py}, n, ends, endCount, "2");
}

}  // namespace vantelgis
