#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace vantelgis {

/// Characters that have to be changed, added or taken away to make one word of the other.
[[nodiscard]] std::size_t stepsBetween(std::string_view a, std::string_view b);

/// The word that somebody who wrote `wrong` probably meant: the one of the fewest steps, if these
/// are less than half of what was written. Empty when none is near.
[[nodiscard]] std::string_view nearestWord(std::string_view wrong,
                                           std::span<const std::string> words);

}  // namespace vantelgis
