#pragma once

#include <string_view>
#include <vector>

#include "memory/memory_platform.h"

namespace vantelgis {

/// A run of the program on files of its own.
struct SampleRun {
    std::string_view name;
    std::vector<std::string_view> arguments;
    memory::Files files;
};

/// One small run of each conversion in each family of formats. Every one ends in "Finished.".
const std::vector<SampleRun>& sampleRuns();

/// Runs that write more than fits the buffers of their files.
const std::vector<SampleRun>& largeRuns();

}  // namespace vantelgis
