#pragma once

#include <cstdint>

#include "gis/layer_table.h"
#include "gis/object.h"

namespace vantelgis {

// The reader of ESRI shapefiles (the layout is that of the ESRI Shapefile Technical Description):
// Null Shape, Point, PolyLine, Polygon and MultiPoint in their plane forms. It reads the .shp
// strictly forward, by the counts in each record; the record numbers and lengths and the .shx are
// not used.

/// Reads the header of a layer just opened through both of its units, shows it on the console and
/// closes the big-endian unit; the other one then stands at the first record. ERROR 0427 or 0428
/// when it can't be read.
void shpReadHeader(shpL_& shp);

/// Goes back to the first record.
void shpRewind(shpL_& shp);

/// Passes over what is left of the record before, reads the next record's head and fixed part, and
/// sets the kind, count and name of `object`. A polyline of no parts keeps the kind unknown. False
/// at the end of the file. Reads that fail, counts that make no sense and shapes that are not
/// supported stop the run with ERROR 0421 to 0425.
bool shpObjectType(shpL_& shp, GisObject& object);

/// Reads the coordinates of that object: of a polyline its next part, of a multipoint its next
/// point, of a polygon all rings, with a copy of its second vertex behind each. More than `nodes`
/// may hold, reads that fail and counts that make no sense stop the run with ERROR 0310, 0429 or
/// 0430.
void shpReadObject(shpL_& shp, ObjectNodes& nodes);

}  // namespace vantelgis
