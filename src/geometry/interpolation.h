#pragma once

#include <cstdint>

#include "text/limits.h"

namespace vantelgis {

/// The elevation at a point inside a triangle, on the plane of its three corners, in `z`. False,
/// with the null elevation, when the line from the third corner through the point is parallel to
/// that of the first two. Lengths have no sign: for a point outside, the result is a number, but
/// not always the plane's.
extern "C" bool INTERPOLATE_TRIANGLE(float x, float y, const float tx[3], const float ty[3],
                                     const float tz[3], float& z);
extern "C" bool INTERPOLATE_TRIANGLE_8(double x, double y, const double tx[3], const double ty[3],
                                       const float tz[3], float& z);

/// The elevation at a point inside an element of 3 or 4 corners, in `z`; with 4 the mean over those
/// triangles of three corners that hold the point. `xmin` is the element's smallest x. False, with
/// the null elevation, outside the element and for any other number of corners.
extern "C" bool INTERPOLATE_ELEMENT_8(double x, double y, const double* ex, const double* ey,
                                      const float* ez, std::int32_t corners, double xmin, float& z);

}  // namespace vantelgis
