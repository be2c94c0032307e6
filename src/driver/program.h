#pragma once

#include <span>
#include <string_view>

namespace vantelgis {

/// One whole run. `arguments` are those of the command line, the program's own path first. The run
/// ends the process; every end gives status 0.
[[noreturn]] void runProgram(std::span<const std::string_view> arguments);

/// The same with the arguments of main.
[[noreturn]] void runProgram(int count, char** values);

}  // namespace vantelgis
