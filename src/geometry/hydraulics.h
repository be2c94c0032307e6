#pragma once

namespace vantelgis {

/// The width of the water surface in a circle of `radius` filled to `depth`; 0 when the circle is
/// empty or full to within 0.00001.
extern "C" float CIRCLE_WIDTH(float radius, float depth);

/// The wet part of one panel (x1, y1)-(x2, y2) of a cross-section under a water level: its flow
/// area, the width of its surface and its wetted perimeter. All are 0 for a dry panel and for one
/// whose `value` is not above 0.
extern "C" void HYD_PARAM(float x1, float y1, float x2, float y2, float level, float value,
                          float& area, float& width, float& perimeter);

/// The same for the two halves of a panel whose ends have a value each: the half next to (x1, y1)
/// has `value1`, the other one `value2`.
extern "C" void HYD_PARAM2(float x1, float y1, float value1, float x2, float y2, float value2,
                           float level, float& area1, float& area2, float& width1, float& width2,
                           float& perimeter1, float& perimeter2);

}  // namespace vantelgis
