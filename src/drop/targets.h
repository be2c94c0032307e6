#pragma once

#include <string_view>

namespace vantelgis::drop {

/// What one of the icons does with the files that are dropped on it. The icons are one program
/// under several names.
struct Target {
    std::string_view word;     ///< what its name holds, and none of those before it
    bool takesArchives;        ///< else layers
    bool takesPairs;           ///< two layers may be the points and the lines of one run
    std::string_view options;  ///< of each run of the converter
    std::string_view takes;    ///< what may be dropped, in the user's words
};

/// The target of a program of this name (without its folder); null when no word fits.
const Target* targetNamed(std::string_view program);

}  // namespace vantelgis::drop
