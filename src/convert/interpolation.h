#pragma once

#include <span>

namespace vantelgis {

/// What a vertex of a section knows of its elevation.
struct VertexElevation {
    float z = 0;
    bool snapped = false;  ///< `z` is that of a point
};

/// Gives the vertices of a section (nodes at `x`, `y`) that did not snap elevations from those that
/// did, at least one: by distance along the line between two of them, and that of the first or last
/// of them beyond it. True when the section dangles: its first or last vertex did not snap. A
/// section of one vertex stays as it is.
bool interpolateElevations(std::span<const double> x, std::span<const double> y,
                           std::span<VertexElevation> vertices);

}  // namespace vantelgis
