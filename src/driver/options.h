#pragma once

#include <span>
#include <string_view>

#include "convert/run_settings.h"

namespace vantelgis {

/// The text that a run without arguments shows.
void printUsage();

/// Reads the arguments behind the program's own path, left to right. What matches no option is
/// ignored without a word, and so is every positional argument behind the second.
RunSettings readOptions(std::span<const std::string_view> arguments);

}  // namespace vantelgis
