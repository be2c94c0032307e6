#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "gpkg/options.h"
#include "gpkg/package/database.h"
#include "gpkg/wkt.h"

namespace vantelgis::gpkg {

/// What a field of a layer can say of a string.
enum class Attribute : std::size_t { name, model, colour, style, breakline, type, chainage, z };
inline constexpr std::size_t kAttributes = 8;
inline constexpr std::size_t kTextAttributes = 6;  ///< the first ones; the others are numbers
inline constexpr std::string_view kAttributeNames[kAttributes] = {
    "name", "model", "colour", "style", "breakline", "type", "chainage", "z"};

/// A layer whose features become strings.
struct LineLayer {
    std::string table;
    std::string geometryColumn;
    std::string key;  ///< the column that numbers the features
    std::int32_t srsId = 0;
    std::array<std::string, kAttributes> columns;  ///< by attribute; empty: there is none
    [[nodiscard]] bool has(Attribute attribute) const {
        return !columns[static_cast<std::size_t>(attribute)].empty();
    }
    bool ownPoints = false;  ///< strings of one vertex, as this program stores them
};

/// The layers of a package that the command line asks for, in its order, else all that can hold
/// lines or polygons, in the order of the package. Fails when one isn't there or can't be read, and
/// when there is none. What is left out is said in a note.
[[nodiscard]] std::vector<LineLayer> chooseLayers(Database& database, const Options& options);

/// The coordinate system of all layers. Fails when they have several, and when it is geographic,
/// unless the command line takes degrees as they are. An undefined one has no text.
[[nodiscard]] CoordinateSystem systemOfLayers(Database& database,
                                              const std::vector<LineLayer>& layers,
                                              const Options& options);

}  // namespace vantelgis::gpkg
