#pragma once

#include <string_view>

#include "gis/records.h"
#include "text/text.h"

namespace vantelgis {

// The reader of MapInfo Interchange files (the format's appendix in the MapInfo reference). It
// looks for a few words at the start of lines and takes the rest of the file as noise.

/// Reads the number of columns and the column lines, tells them on the console, and stops behind
/// the line `Data`. Columns beyond 256 are read and dropped.
void gisMifReadHeader(mifL_& layer);

/// Goes back to the line behind `Data`.
void gisMifSkipToData(int mifUnit);

/// Finds the next line with an object keyword: sets the object's flag, counts and name, `line` to
/// that line and `rest` to what follows the keyword. False when the file ends without one.
bool gisMifObjectType(int mifUnit, TextRef line, TextRef rest, GisObject& object);

/// Reads the coordinates of the object (the next section of a plineMultiple). `noCentreSeen`
/// becomes false when a region's centre was read into `nodes`.
void gisMifReadObject(int mifUnit, TextRef rest, GisObject& object, ObjectNodes& nodes,
                      bool& noCentreSeen);

/// Stops with ERROR 0310 when `n` is above `maxNodes`.
void gisMifCheckNodes(std::int64_t n, std::int32_t maxNodes);

}  // namespace vantelgis
