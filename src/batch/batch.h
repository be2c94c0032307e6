#pragma once

#include <string>
#include <vector>

namespace vantelgis::batch {

/// The whole program. `arguments` are those of the command line, the program's own name first.
/// Gives the exit status.
int runBatch(const std::vector<std::string>& arguments);

}  // namespace vantelgis::batch
