#pragma once

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

namespace vantelgis::gpkg {

/// Where a vertex has no elevation its z is not a number.
inline constexpr double kNoElevation = std::numeric_limits<double>::quiet_NaN();

struct Vertex {
    double x;
    double y;
    double z;
};

inline bool hasElevation(const Vertex& vertex) {
    return !std::isnan(vertex.z);
}

/// A rectangle around what was added to it.
struct Box {
    double minX = std::numeric_limits<double>::infinity();
    double minY = minX;
    double maxX = -minX;
    double maxY = -minX;

    [[nodiscard]] bool empty() const { return !(minX <= maxX); }
    void add(double x, double y) {
        if (x < minX) minX = x;
        if (x > maxX) maxX = x;
        if (y < minY) minY = y;
        if (y > maxY) maxY = y;
    }
    void add(const Box& other) {
        if (other.empty()) return;
        add(other.minX, other.minY);
        add(other.maxX, other.maxY);
    }
};

/// A feature's geometry as lines: the vertices of all its parts one behind the other.
struct Shape {
    std::vector<Vertex> vertices;
    std::vector<std::size_t> partEnds;  ///< for each part the index (from 0) behind its last vertex
    bool hasZ = false;                  ///< a part was stored with elevations

    void clear() {
        vertices.clear();
        partEnds.clear();
        hasZ = false;
    }
};

}  // namespace vantelgis::gpkg
