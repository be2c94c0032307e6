#pragma once

#include <optional>
#include <vector>

#include "archive/head.h"
#include "archive/vertices.h"
#include "gpkg/geometry/shape.h"

namespace vantelgis::gpkg {

/// A string's vertices as its feature has them, and what can be said of them as a whole.
struct MeasuredString {
    std::vector<Vertex> vertices;
    Box box;
    double length2d = 0;
    std::optional<double> length3d;  ///< when every vertex has an elevation of its own
    std::optional<double> zMin;      ///< of those that have one
    std::optional<double> zMax;
};

struct StringForm {
    bool ownElevations = false;  ///< the z of the vertices are the string's, not its level
    bool backToFirst = false;    ///< ends at its first vertex, unless it does already
};

/// Fills `string` from what the archive's reader gave. Its room is kept for the next one.
void measureString(const Archive& archive, const ArchiveVertices& read, const StringForm& form,
                   MeasuredString& string);

}  // namespace vantelgis::gpkg
