#pragma once

#include <new>

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
template <typename Table>
void addRow(Table& table, const typename Table::value_type& row) {
    growOrStop([&] { table.push_back(row); });
}

}  // namespace vantelgis
