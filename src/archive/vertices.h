#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "archive/head.h"
#include "archive/scanner.h"

namespace vantelgis {

/// Most vertices of one string. A closed polyline has one more.
inline constexpr std::int32_t kMaxVertices = 1'000'000;

/// Reads one data block and leaves the file behind it, or in front of the next block of the same
/// super string. The `count` vertices lie in gisX, gisY and `z` (vertex 1 at index 0), the closing
/// vertex of a polyline included. More than `limit` vertices, or a vertex line that can't be read,
/// stop the run. False when the file is at its end or `object` is no string.
bool d12ReadVertices(const Archive& archive, D12Object& object, std::vector<float>& z,
                     std::int32_t limit, std::int32_t& count);

/// Passes over the block that d12ObjectType announced with `line`. A first block is left to the
/// search for the next header; from a further block of a super string it goes on to the one behind.
void d12PassOver(int unit, std::string_view line, D12Object& object);

}  // namespace vantelgis
