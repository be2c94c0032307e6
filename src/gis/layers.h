#pragma once

#include <string_view>

#include "gis/fields.h"

namespace vantelgis {

/// Brings the GIS subsystem to its start: all slots free, nothing remembered. Once at the start of
/// a run.
void gisInitialise();

/// Opens the layer `name` for reading and gives its handle, 1 to 100. A shapefile's name must be
/// whole; either file of a MapInfo pair, or its bare stem, names both. Whatever fails stops the
/// run.
int gisOpenLayer(std::string_view name);

/// Makes the layer `name` with these fields, ready for its first object, and gives its handle.
/// `shapeFamilies` names the shapefile sets to make: P points, L lines, R regions; it has no
/// meaning for MapInfo layers. Whatever fails stops the run.
int gisCreateLayer(std::string_view name, std::string_view shapeFamilies, FieldDefinitions fields);

/// Finishes a layer that was written, closes its files, frees its slot and sets the handle to 0. A
/// handle below 1 is reported on the console and the run goes on.
void gisCloseLayer(int& gisID);

}  // namespace vantelgis
