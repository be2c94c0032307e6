#include "gpkg/to_package/string_measures.h"

#include <algorithm>
#include <cmath>

#include "gpkg/to_package/elevation.h"

namespace vantelgis::gpkg {

namespace {

void takeVertices(const Archive& archive, const ArchiveVertices& read, bool ownElevations,
                  std::vector<Vertex>& vertices) {
    vertices.resize(read.size());
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const float z = read.z[i];
        const bool has = ownElevations && archive.hasElevation(z);
        vertices[i] = {read.x[i], read.y[i], has ? shortestDecimal(z) : kNoElevation};
    }
}

void closeLine(std::vector<Vertex>& vertices) {
    if (vertices.size() < 2) return;
    const Vertex first = vertices.front();
    const Vertex& last = vertices.back();
    if (last.x != first.x || last.y != first.y) vertices.push_back(first);
}

void measureLengths(MeasuredString& string) {
    double length2d = 0;
    double length3d = 0;  // becomes NaN with the first vertex that has no elevation
    for (std::size_t i = 1; i < string.vertices.size(); ++i) {
        const Vertex& a = string.vertices[i - 1];
        const Vertex& b = string.vertices[i];
        const double dx = b.x - a.x;
        const double dy = b.y - a.y;
        const double dz = b.z - a.z;
        const double square = dx * dx + dy * dy;
        length2d += std::sqrt(square);
        length3d += std::sqrt(square + dz * dz);
    }
    string.length2d = length2d;
    string.length3d.reset();
    const bool known = !string.vertices.empty() && hasElevation(string.vertices.front());
    if (known && !std::isnan(length3d)) string.length3d = length3d;
}

void measureBounds(MeasuredString& string) {
    string.box = {};
    double zMin = std::numeric_limits<double>::infinity();
    double zMax = -zMin;
    for (const Vertex& vertex : string.vertices) {
        string.box.add(vertex.x, vertex.y);
        if (vertex.z < zMin) zMin = vertex.z;  // never true of a missing one
        if (vertex.z > zMax) zMax = vertex.z;
    }
    string.zMin.reset();
    string.zMax.reset();
    if (zMin > zMax) return;
    string.zMin = zMin;
    string.zMax = zMax;
}

}  // namespace

void measureString(const Archive& archive, const ArchiveVertices& read, const StringForm& form,
                   MeasuredString& string) {
    takeVertices(archive, read, form.ownElevations, string.vertices);
    if (form.backToFirst) closeLine(string.vertices);
    measureLengths(string);
    measureBounds(string);
}

}  // namespace vantelgis::gpkg
