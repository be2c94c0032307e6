#pragma once

namespace vantelgis {

/// The angle between the directions a to b and c to d, in degrees from 0 to 180. A line that runs
/// straight along y has no slope to compare: the result is then 0.
extern "C" float ANGLE2D(double ax, double ay, double bx, double by, double cx, double cy,
                         double dx, double dy);

}  // namespace vantelgis
