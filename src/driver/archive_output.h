#pragma once

#include <cstddef>
#include <string_view>

#include "driver/run_settings.h"

namespace vantelgis {

// What the conversions from GIS to the archive write alike.

/// Opens the run's output file in `unit` and writes the head of an archive: the null value, the
/// model line and an empty line. Without -model the model is named after `sourceFile`.
void openArchive(int& unit, const RunSettings& run, std::string_view sourceFile);

/// Writes a string's lines up to the start of its data: `type` is 2d or 3d.
void beginString(int unit, std::string_view type, std::string_view name);

/// Room that a node's line in a string's data needs.
inline constexpr std::size_t kNodeLineRoom = 160;

/// Composes such a line up to its y at `out`, and returns the place behind that.
char* composeNode(char* out, double x, double y);

/// Ends a line that was composed in a unit's buffer up to `end`.
void commitLine(int unit, char* end);

/// Writes the end of a string's data and of the string.
void endString(int unit);

}  // namespace vantelgis
