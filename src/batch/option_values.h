#pragma once

#include <string>
#include <string_view>

#include "batch/options.h"

// Values of options that are no plain texts or numbers. Each gives false when the text is none.
namespace vantelgis::batch {

/// "K/N" with K from 1 to N.
bool takeShard(std::string_view text, Options& options);
/// "POINTS=LINES"
bool takePair(const std::string& text, Options& options);
bool takeProgress(std::string_view text, Options& options);

}  // namespace vantelgis::batch
