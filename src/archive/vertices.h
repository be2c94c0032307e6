#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "archive/head.h"
#include "archive/scanner.h"

namespace vantelgis {

/// The vertices of one string, vertex 1 at index 0. The arrays grow with what is there; what lies
/// behind `count` is of earlier strings.
struct ArchiveVertices {
    std::vector<double> x;
    std::vector<double> y;
    std::vector<float> z;
    std::int32_t count = 0;

    [[nodiscard]] std::size_t size() const { return static_cast<std::size_t>(count); }
};

/// Reads one data block and leaves the file behind it, or in front of the next block of the same
/// super string. The closing vertex of a polyline is one of its vertices. More than `limit`
/// vertices of the file, or a vertex line that can't be read, stop the run. False when the file is
/// at its end or `object` is no string; `vertices.count` is then that of an earlier string.
bool d12ReadVertices(const Archive& archive, D12Object& object, std::int32_t limit,
                     ArchiveVertices& vertices);

/// Passes over the block that d12ObjectType announced with `line`. A first block is left to the
/// search for the next header; from a further block of a super string it goes on to the one behind.
void d12PassOver(int unit, std::string_view line, D12Object& object);

}  // namespace vantelgis
