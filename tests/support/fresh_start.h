#pragma once

namespace vantelgis {

/// Thrown by what ends the process in the program itself, so that only the run ends.
struct ProcessEnd {};

/// Brings all state of the program back to that of a new process.
void freshStart();

}  // namespace vantelgis
