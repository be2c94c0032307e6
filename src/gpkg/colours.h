#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vantelgis::gpkg {

struct Colour {
    std::uint8_t red, green, blue;
};

/// What strings of an unknown colour are drawn in.
inline constexpr Colour kUnknownColour{140, 140, 140};

/// The colour behind a name as archives use it, without regard to case; blanks, hyphens and
/// underscores don't count, `gray` is `grey`, and `dark`, `light` or `off` in front of a name makes
/// a shade of it. Nothing for any other text.
[[nodiscard]] std::optional<Colour> colourFromName(std::string_view name);

/// Nearly white, so that a line of it needs a dark edge on a white map.
[[nodiscard]] bool needsEdge(Colour colour);

}  // namespace vantelgis::gpkg
