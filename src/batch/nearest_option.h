#pragma once

#include <string>
#include <string_view>

namespace CLI {
class App;
}

namespace vantelgis::batch {

/// The long option that looks most like a wrong one; empty when none does.
std::string nearestOption(const CLI::App& app, std::string_view wrong);

}  // namespace vantelgis::batch
