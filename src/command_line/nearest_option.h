#pragma once

#include <string>
#include <string_view>

namespace CLI {
class App;
}

namespace vantelgis {

/// The long option that whoever wrote `wrong` (a value behind `=` aside) probably meant: the one
/// that the fewest characters changed, added or taken away lead to, if these are at most half of
/// what was written. Hidden options don't count. Empty when none is near.
[[nodiscard]] std::string nearestOption(const CLI::App& app, std::string_view wrong);

}  // namespace vantelgis
