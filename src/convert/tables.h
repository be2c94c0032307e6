#pragma once

#include <new>
#include <vector>

namespace vantelgis {

// Tables of points grow with what is read, so that a small layer needs little memory.

/// An empty line, "ERROR - Could not allocate enough memory (RAM).", and the stop.
[[noreturn]] void stopWithoutMemory();

/// Runs `grow`, which makes room in a table; where there is none left the run stops with
/// stopWithoutMemory.
template <typename Grow>
void growOrStop(Grow grow) {
    try {
        grow();
    } catch (const std::bad_alloc&) {
        stopWithoutMemory();
    }
}

/// Adds a row at the end of a table.
template <typename Row>
void addRow(std::vector<Row>& table, const Row& row) {
    growOrStop([&] { table.push_back(row); });
}

}  // namespace vantelgis
