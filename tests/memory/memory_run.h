#pragma once

#include <span>
#include <string_view>

#include "memory/memory_platform.h"

namespace vantelgis::memory {

/// Runs the program from its start to its end on what `system` holds; `arguments` stand behind the
/// program's own path. The console of the run is left in `system`.
void runProgramInMemory(std::span<const std::string_view> arguments);

}  // namespace vantelgis::memory
