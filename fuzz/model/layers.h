#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "memory/memory_platform.h"

namespace vantelgis::fuzz {

struct Node {
    double x = 0;
    double y = 0;
};

/// A polyline, or a point, of a layer of strings, and what its record says.
struct Feature {
    bool isPoint = false;
    std::vector<Node> nodes;
    float z = 0;
    std::string type;  ///< of the string
};

/// The files that the program makes of these features, as the formats' descriptions say. `path` is
/// that of the layer without its extension.
memory::Files mifLayer(const std::string& path, std::span<const Feature> features);
memory::Files shpLayer(const std::string& path, std::span<const Feature> features);

/// A record of a .shp with its head, beginning with the shape type.
std::string polylineRecord(std::int32_t number, std::span<const std::vector<Node>> parts);
std::string pointRecord(std::int32_t number, const Node& node);

}  // namespace vantelgis::fuzz
