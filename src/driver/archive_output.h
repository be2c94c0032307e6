#pragma once

#include <string_view>

#include "driver/run_settings.h"

namespace vantelgis {

// What the conversions from GIS to the archive write alike.

/// Opens the run's output file in `unit` and writes the head of an archive: the null value, the
/// model line and an empty line. Without -model the model is named after `sourceFile`.
void openArchive(int& unit, const RunSettings& run, std::string_view sourceFile);

/// Writes a string's lines up to the start of its data: `type` is 2d or 3d.
void beginString(int unit, std::string_view type, std::string_view name);

/// Writes the end of a string's data and of the string.
void endString(int unit);

}  // namespace vantelgis
