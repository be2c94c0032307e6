#pragma once

#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "memory/memory_platform.h"

namespace vantelgis::fuzz {

using Arguments = std::vector<std::string_view>;

/// Stands between the files of an input, which are otherwise taken as they are.
inline constexpr std::string_view kDivider = "\n=====\n";

struct Input {
    unsigned mode = 0;  ///< the first byte
    std::string_view first;
    std::string_view second;
};
Input split(std::string_view bytes);

/// The conversion of a layer, and of an archive, that a mode stands for.
Arguments layerArguments(unsigned mode, std::string_view layer);
Arguments archiveArguments(unsigned mode, std::string_view archive);

/// What a run leaves. `files` also holds those that were there before.
struct Outcome {
    std::string console;
    memory::Files files;
    bool operator==(const Outcome&) const = default;
};

/// Runs the program on these files, which are given to it in pieces of at most `mostPerRead` bytes.
Outcome outcomeOf(memory::Files files, const Arguments& arguments, std::string_view typed = {},
                  std::size_t mostPerRead = std::numeric_limits<std::size_t>::max());

/// Shows two outcomes, with the file in which they differ, and ends the process.
[[noreturn]] void stopAtDifference(std::string_view why, const Outcome& one, const Outcome& other);

}  // namespace vantelgis::fuzz
