#pragma once

#include <cstdint>
#include <string_view>

#include "convert/run_settings.h"
#include "gis/object.h"
#include "text/free_format.h"

namespace vantelgis {

// What the conversions from a layer to an archive do alike.

/// Creates the run's output archive, whose model is named by -model or else after `sourceFile`, and
/// gives its unit.
int createArchive(const RunSettings& settings, std::string_view sourceFile);

/// Opens a layer for reading; it then stands at its first object.
int openInputLayer(std::string_view name);

/// Goes on to the next object of the layer and reads its record, of which `nItems` items are
/// wanted (see gisReadRecord); false at the layer's end.
bool nextObject(int layer, GisObject& object, std::string_view& record, int nItems);

/// How many parts a line-like object has, each of which becomes a string of its own. That a
/// combined polyline is taken apart is shown on the console.
std::int32_t countParts(const GisObject& object);

/// "Polyline 1 with 2 nodes...", with no line end.
void showPolyline(std::int32_t counter, std::int32_t nodes);

/// Goes on if a value of a record line could be read; the end of the line stops the run with
/// stopEndOfFile, a value that does not convert with stopReadingData.
void requireValue(Item item);

}  // namespace vantelgis
