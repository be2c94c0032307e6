#pragma once

#include <cstdint>
#include <string_view>

#include "gis/layer_table.h"
#include "gis/object.h"
#include "text/text.h"

namespace vantelgis {

// The reader of MapInfo Interchange files (the format's appendix in the MapInfo reference). It
// looks for a few words at the start of lines and takes the rest of the file as noise.

/// Reads the number of columns and the column lines, shows them on the console, and stops behind
/// the line `Data`. Columns beyond kMaxMifFields are read and dropped. A header that makes no sense
/// stops the run with ERROR 0313 to 0319. Nothing happens without an open file.
void gisMifReadHeader(mifL_& layer);

/// Goes back to the line behind `Data`, if the unit is above 0.
void gisMifSkipToData(int mifUnit);

/// Finds the next line with an object keyword: sets the kind, count and name of `object`, which is
/// clear, and the layer's `rest` to what follows the keyword, unless that was read with it. False,
/// and no rest, when the file ends without one. A collection, too many polygons, and a line or
/// count that can't be read stop the run with ERROR 0303, 0304, 0308, 0309, 0321 or 0322.
bool gisMifObjectType(mifL_& layer, GisObject& object);

/// Reads the coordinates of the object (the next part of a multiPolyline, the next point of a
/// multiPoint) into `nodes`, with a region's centre where it ends the file. Numbers that can't be
/// read stop the run with ERROR 0308 or 0309, more nodes than `nodes` may hold with ERROR 0310, a
/// region of less than 5 with ERROR 0318.
void gisMifReadObject(mifL_& layer, const GisObject& object, ObjectNodes& nodes);

/// Reads the next line of a .mid, the attribute record of the object, as a view that is good until
/// the next one. The file must have one: else ERROR 0254, with the object's name.
std::string_view midReadRecord(int midUnit, const GisObject& object);

}  // namespace vantelgis
