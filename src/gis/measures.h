#pragma once

#include "gis/object.h"

namespace vantelgis {

/// Where an object lies, for those that ask.
struct Measures {
    double xCentre = 0;  ///< its centre or mid-point
    double yCentre = 0;
    float angle = 0;   ///< direction of a line there, degrees from -180 to 180
    float length = 0;  ///< of a line
};

/// Works out centre or mid-point, angle and length of the object whose nodes were just read. A
/// region whose centre the file gives keeps that one; what a kind doesn't have is 0.
Measures measuresOf(const GisObject& object, const ObjectNodes& nodes);

}  // namespace vantelgis
