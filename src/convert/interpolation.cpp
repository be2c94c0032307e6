#include "convert/interpolation.h"

#include <cstddef>

#include "geometry/distance.h"

namespace vantelgis {

namespace {

// A line or part of one, as the arithmetic looks at it.
struct LinePart {
    std::span<const double> x;
    std::span<const double> y;
    std::span<VertexElevation> vertices;

    [[nodiscard]] float lengthTo(std::size_t i) const {
        return distanceBetween(x[i], y[i], x[i - 1], y[i - 1]);
    }
};

// The vertices from `first` to before `end` lie between two that have their elevations, and
// `length` is that of the line between these two.
void fillBetween(const LinePart& part, std::size_t first, std::size_t end, float length) {
    const float z1 = part.vertices[first - 1].z;
    const float z2 = part.vertices[end].z;
    float done = 0;
    for (std::size_t k = first; k < end; ++k) {
        done += part.lengthTo(k);
        part.vertices[k].z = length == 0 ? (z1 + z2) * 0.5F : z1 + (done / length) * (z2 - z1);
    }
}

// The first vertex from `from` on that snapped, or the last of all, with the line's length up to
// the vertex before it.
std::size_t nextSnapped(const LinePart& part, std::size_t from, float& length) {
    const std::size_t last = part.vertices.size() - 1;
    std::size_t j = from;
    length = 0;
    for (; j < last && !part.vertices[j].snapped; ++j) length += part.lengthTo(j);
    return j;
}

}  // namespace

// The lengths and elevations are 32-bit values all along: the written elevations show it.
bool interpolateElevations(std::span<const double> x, std::span<const double> y,
                           std::span<VertexElevation> vertices) {
    const LinePart part{x, y, vertices};
    bool dangling = false;
    for (std::size_t first = 1, end = 0; first < vertices.size(); first = end + 1) {
        float length = 0;
        end = nextSnapped(part, first, length);
        length += part.lengthTo(end);
        if (first == 1 && !vertices.front().snapped) {
            vertices.front().z = vertices[end].z;
            dangling = true;
        }
        if (end == vertices.size() - 1 && !vertices.back().snapped) {
            vertices.back().z = vertices[first - 1].z;
            dangling = true;
        }
        fillBetween(part, first, end, length);
    }
    return dangling;
}

}  // namespace vantelgis
