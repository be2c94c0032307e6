#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "gpkg/colours.h"

namespace vantelgis::gpkg {

/// The strings of one colour, as the legend shows them.
struct ColourClass {
    std::string name;              ///< as the archive has it; empty: strings without a colour
    std::optional<Colour> colour;  ///< nothing for a name that is unknown
};

// Style documents of QGIS (its QML), as versions from 3.16 on read them.

[[nodiscard]] std::string lineStyle(const std::vector<ColourClass>& classes);
[[nodiscard]] std::string pointStyle(const std::vector<ColourClass>& classes);
/// Vertices: a dot where there is an elevation, a red cross where there is none.
[[nodiscard]] std::string vertexStyle();

}  // namespace vantelgis::gpkg
