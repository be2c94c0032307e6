#pragma once

#include <span>

namespace vantelgis {

/// What a vertex of a line knows of its elevation.
struct VertexElevation {
    float z = 0;
    bool snapped = false;  ///< `z` is that of a point
};

/// Gives the vertices of a line, or a part of one (nodes at `x`, `y`), that did not snap elevations
/// from those that did, at least one: by distance along the line between two of them, and that of
/// the first or last of them beyond it. True when the part dangles: its first or last vertex did
/// not snap. A part of one vertex stays as it is.
bool interpolateElevations(std::span<const double> x, std::span<const double> y,
                           std::span<VertexElevation> vertices);

}  // namespace vantelgis
