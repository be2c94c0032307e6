#pragma once

#include <string>

namespace CLI {
class App;
}

namespace vantelgis::batch {

/// The completion of the options for bash.
std::string bashCompletion(const CLI::App& app);

}  // namespace vantelgis::batch
