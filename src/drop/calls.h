#pragma once

#include <span>
#include <string>
#include <vector>

#include "drop/targets.h"

namespace vantelgis::drop {

/// One call of vantelgis-batch. All texts are UTF-8.
struct Call {
    std::vector<std::string> options;
    std::string list;    ///< for its standard input: a name on each line, or two with a tab between
    std::string report;  ///< the page that it writes, beside the results
};

/// The calls for what was dropped on a target: one for each folder that gets results, since a
/// folder has its own projection and report. `dropped` are absolute names; what is no input of the
/// target, such as the other files of a layer, is left out. `program` gives the reports their name.
std::vector<Call> planCalls(const Target& target, const std::string& program,
                            std::span<const std::string> dropped);

}  // namespace vantelgis::drop
