#pragma once

#include <functional>
#include <span>
#include <string_view>

#include "memory/memory_platform.h"

namespace vantelgis::memory {

/// Runs the program from its start to its end on what `system` holds; `arguments` stand behind the
/// program's own path. The console of the run is left in `system`.
void runProgramInMemory(std::span<const std::string_view> arguments);

/// The same for calls of the program's routines. What ends the process ends only the call.
void callInMemory(const std::function<void()>& body);

}  // namespace vantelgis::memory
