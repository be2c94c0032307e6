#pragma once

#include <cstdint>
#include <string_view>

#include "batch/look/look.h"

namespace vantelgis::batch {

/// Tells in a modeller's words what a reader's message means, with which the run would stop at
/// object `object` (from 1; 0 for the head of the file). `limit` is the most nodes of an object.
void tellReaderStop(std::string_view message, std::int64_t object, std::int32_t limit, Look& look);

}  // namespace vantelgis::batch
