#pragma once

#include "gis/records.h"

namespace vantelgis {

/// Works out centre or mid-point, angle and length of the object whose nodes were just read.
/// `noCentreSeen` is false for a region whose centre was read from the file, which keeps that one.
void measureObject(const GisObject& object, ObjectNodes& nodes, bool noCentreSeen);

}  // namespace vantelgis
