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

void measurePoint(ObjectNodes& nodes) {
    nodes.xc = nodes.x[1] = nodes.x[0];
    nodes.yc = nodes.y[1] = nodes.y[0];
}

void measureLine(ObjectNodes& nodes) {
    nodes.xc = (nodes.x[0] + nodes.x[1]) / 2;
    nodes.yc = (nodes.y[0] + nodes.y[1]) / 2;
    nodes.angle = directionFrom(nodes, 0, 1);
    nodes.length = distanceBetween(nodes, 0, 1);
}

// The mid-point lies on the first segment at whose end half of the length is reached.
void measurePolyline(ObjectNodes& nodes) {
    const auto n = static_cast<std::size_t>(nodes.n);
    for (std::size_t i = 1; i < n; ++i) nodes.length += distanceBetween(nodes, i - 1, i);
    nodes.xc = nodes.x[0];
    nodes.yc = nodes.y[0];
    if (n < 2) return;

    const float half = nodes.length * 0.5F;
    float done = 0;
    std::size_t end = 1;
    float segment = distanceBetween(nodes, 0, 1);
    while (end + 1 < n && done + segment < half) {
        done += segment;
        ++end;
        segment = distanceBetween(nodes, end - 1, end);
    }
    const float t = (half - done) / segment;
    nodes.xc = nodes.x[end - 1] + static_cast<double>(t) * (nodes.x[end] - nodes.x[end - 1]);
    nodes.yc = nodes.y[end - 1] + static_cast<double>(t) * (nodes.y[end] - nodes.y[end - 1]);
    nodes.angle = directionFrom(nodes, end - 1, end);
}

// The last two stored nodes repeat the last polygon's first two and take no part.
void measureRegion(ObjectNodes& nodes) {
    const std::int32_t count = nodes.n - 2;
    if (count < 1) return;
    double sumX = 0;
    double sumY = 0;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        sumX += nodes.x[i];
        sumY += nodes.y[i];
    }
    nodes.xc = sumX / count;
    nodes.yc = sumY / count;
}

}  // namespace

void measureObject(const GisObject& object, ObjectNodes& nodes, bool noCentreSeen) {
    nodes.angle = nodes.length = 0;
    if (object.point || object.multiPoint) {
        measurePoint(nodes);
    } else if (object.line || object.rect || object.roundRect) {
        measureLine(nodes);
    } else if (object.arc || object.ellipse) {
        nodes.n = 0;
    } else if (object.pline || object.plineMultiple) {
        measurePolyline(nodes);
    } else if (object.region && noCentreSeen) {
        measureRegion(nodes);
    }
}

}  // namespace vantelgis
