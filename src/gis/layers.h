#pragma once

#include <string_view>

namespace vantelgis {

/// Brings the GIS subsystem to its start: no message, no record, all slots free. Once at the start
/// of a run. The other arguments of a host's log and side files have no use here.
void gisInitialise(int logUnit, std::string_view title, std::string_view workspaceName,
                   std::string_view inputLayersName);

/// Opens the layer `name` and gives its handle, 1 to 100. `mode` is "I " or "O ". `shapeFamilies`
/// names the shapefile sets to make: P points, L lines, R regions; it has no meaning for input and
/// for MapInfo layers. Whatever fails stops the run.
int gisOpenLayer(std::string_view name, std::string_view shapeFamilies, std::string_view mode);

/// Brings a slot to its start state.
void gisInitialiseLayer(int gisID);

/// Finishes a layer that was written, closes its files, frees its slot and sets the handle to 0. A
/// handle below 1 is told on the console and the run goes on.
void gisCloseLayer(int& gisID);

}  // namespace vantelgis
