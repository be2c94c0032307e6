#pragma once

#include <cstddef>

#include "gis/object.h"

namespace vantelgis {

/// Closes a ring that starts behind the first `first` nodes and has `vertices` of them: behind it
/// goes one more node, a copy of its second vertex. A ring of one vertex repeats that, an empty one
/// the node stored last.
inline void repeatSecondVertex(ObjectNodes& nodes, std::size_t first, std::size_t vertices) {
    const std::size_t behind = first + vertices;
    std::size_t source = first + 1;
    if (vertices < 2) source = behind == 0 ? 0 : behind - 1;
    nodes.x[behind] = nodes.x[source];
    nodes.y[behind] = nodes.y[source];
}

}  // namespace vantelgis
