#include "gis/measures.h"

#include <cmath>
#include <cstddef>
#include <numbers>

namespace vantelgis {

namespace {

// Lengths are summed in single precision; each is rounded once from the plane distance.
float distanceBetween(const ObjectNodes& nodes, std::size_t a, std::size_t b) {
    const double dx = nodes.x[b] - nodes.x[a];
    const double dy = nodes.y[b] - nodes.y[a];
    return static_cast<float>(std::sqrt(dx * dx + dy * dy));
}

float directionFrom(const ObjectNodes& nodes, std::size_t a, std::size_t b) {
    const double radians = std::atan2(nodes.y[b] - nodes.y[a], nodes.x[b] - nodes.x[a]);
    return static_cast<float>(radians * 180.0 / std::numbers::pi);
}

Measures measureLine(const ObjectNodes& nodes) {
    return {(nodes.x[0] + nodes.x[1]) / 2, (nodes.y[0] + nodes.y[1]) / 2,
            directionFrom(nodes, 0, 1), distanceBetween(nodes, 0, 1)};
}

// The mid-point lies on the first segment at whose end half of the length is reached.
Measures measurePolyline(const ObjectNodes& nodes) {
    const std::size_t n = nodes.size();
    Measures m{nodes.x[0], nodes.y[0], 0, 0};
    for (std::size_t i = 1; i < n; ++i) m.length += distanceBetween(nodes, i - 1, i);
    if (n < 2) return m;

    const float half = m.length * 0.5F;
    float done = 0;
    std::size_t end = 1;
    float segment = distanceBetween(nodes, 0, 1);
    while (end + 1 < n && done + segment < half) {
        done += segment;
        ++end;
        segment = distanceBetween(nodes, end - 1, end);
    }
    const auto t = static_cast<double>((half - done) / segment);
    m.xCentre = nodes.x[end - 1] + t * (nodes.x[end] - nodes.x[end - 1]);
    m.yCentre = nodes.y[end - 1] + t * (nodes.y[end] - nodes.y[end - 1]);
    m.angle = directionFrom(nodes, end - 1, end);
    return m;
}

// The last two nodes are the first two of the last polygon again, where that is closed: they take
// no part.
Measures measureRegion(const ObjectNodes& nodes) {
    if (nodes.centreRead) return {nodes.xCentre, nodes.yCentre, 0, 0};
    const std::int32_t count = nodes.n - 2;
    Measures m;
    if (count < 1) return m;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        m.xCentre += nodes.x[i];
        m.yCentre += nodes.y[i];
    }
    m.xCentre /= count;
    m.yCentre /= count;
    return m;
}

}  // namespace

Measures measuresOf(const GisObject& object, const ObjectNodes& nodes) {
    switch (object.kind) {
        case ObjectKind::point:
        case ObjectKind::multiPoint: return {nodes.x[0], nodes.y[0], 0, 0};
        case ObjectKind::line:
        case ObjectKind::rect:
        case ObjectKind::roundRect: return measureLine(nodes);
        case ObjectKind::polyline:
        case ObjectKind::multiPolyline: return measurePolyline(nodes);
        case ObjectKind::region: return measureRegion(nodes);
        default: return {};
    }
}

}  // namespace vantelgis
