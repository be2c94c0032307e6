#pragma once

#include "gis/layer_table.h"
#include "gis/object.h"

namespace vantelgis {

/// Reads on to the next line with an object keyword: sets the kind, counts and name of `object`,
/// which is clear, and the layer's `rest`, or what was read of that. `centreLast`: the line read
/// last is a Center clause, which is no object; `rest` is then what follows that.
void mifScanForObject(mifL_& layer, GisObject& object, bool& centreLast);

}  // namespace vantelgis
