#pragma once

#include <cstdint>

#include "gis/records.h"
#include "text/free_format.h"

namespace vantelgis {

// What the conversions of lines and polylines do alike with each object.

/// A line or polyline of one or several sections.
bool isLineLike(const GisObject& object);

/// How many sections a line-like object has, each of which becomes a string of its own. That a
/// combined polyline is taken apart is told on the console.
std::int32_t countSections(const GisObject& object);

/// "Polyline 1 with 2 nodes...", with no line end.
void tellPolyline(std::int32_t counter, std::int32_t nodes);

/// Goes on if a value of a record line could be read; the end of the line stops the run with
/// stopEndOfFile, a value that does not convert with stopReadingData.
void requireValue(Item item);

}  // namespace vantelgis
