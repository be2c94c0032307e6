#pragma once

#include <cstdlib>

namespace vantelgis {

/// How many random inputs a comparison tries: `daily`, or for a run that has more time
/// VANTELGIS_RANDOM_INPUTS of the environment.
inline int randomInputs(int daily) {
    const char* const wanted = std::getenv("VANTELGIS_RANDOM_INPUTS");
    return wanted != nullptr ? std::atoi(wanted) : daily;
}

}  // namespace vantelgis
