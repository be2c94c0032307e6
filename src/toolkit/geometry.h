#pragma once

#include <cstdint>

namespace vantelgis {

// Plane geometry on 32-bit coordinates, and under the suffix _8 on 64-bit ones, whose lengths and
// elevations are 32-bit all the same. Lengths are in the unit of the coordinates. An elevation that
// can't be computed is -99999. Unless it is said, nothing here fails.

extern "C" {

/// The distance between two points; 0 when they are nearer than 1e-6 along both axes.
float DISTANCE(float x1, float y1, float x2, float y2);
float DISTANCE_8(double x1, double y1, double x2, double y2);

/// The length of a vector; 0 when neither component is beyond 1e-6.
float VECTOR_MAGNITUDE(float vx, float vy);

/// True when the points differ by less than `tolerance` along each axis; a difference of exactly
/// `tolerance` is too much.
bool SAME_POINT(float x1, float y1, float x2, float y2, float tolerance);
bool SAME_POINT_8(double x1, double y1, double x2, double y2, double tolerance);

/// The angle between the directions a to b and c to d, in degrees from 0 to 180. A line that runs
/// straight along y has no slope to compare: the result is then 0.
float ANGLE2D(double ax, double ay, double bx, double by, double cx, double cy, double dx,
              double dy);

/// Says by its sign on which sides of the endless line a-b the points c and d lie: positive when on
/// the same side, negative when on opposite ones, 0 when at least one is on the line.
float SAME_SIDE(float ax, float ay, float bx, float by, float cx, float cy, float dx, float dy);
float SAME_SIDE_8(double ax, double ay, double bx, double by, double cx, double cy, double dx,
                  double dy);

/// True when p lies on the endless line a-b.
bool INTERSECT_POINT(float ax, float ay, float bx, float by, float px, float py);

/// True when the segments a-b and c-d meet. Touching counts, and so do any two segments of one
/// line, however far apart.
bool INTERSECT_LINE(float ax, float ay, float bx, float by, float cx, float cy, float dx, float dy);
bool INTERSECT_LINE_8(double ax, double ay, double bx, double by, double cx, double cy, double dx,
                      double dy);

/// Where the endless lines 1-2 and 3-4 cross: 3 on both segments, 1 on segment 1-2 alone, 2 on
/// segment 3-4 alone, 4 on neither; 0 for parallel lines, -1 when they coincide. A segment's start
/// (1, 3) is not on it, its end (2, 4) is, so that a chain of segments is met once at each joint.
std::int32_t INTERSECT_LINE_V2(float x1, float y1, float x2, float y2, float x3, float y3, float x4,
                               float y4);
std::int32_t INTERSECT_LINE_V2_8(double x1, double y1, double x2, double y2, double x3, double y3,
                                 double x4, double y4);

/// The point where the endless lines 1-2 and 3-4 cross. False for parallel lines, which leaves `xi`
/// and `yi` as they were. Slopes are compared exactly: nearly parallel lines cross far away.
bool INTERSECTION_POINT(float x1, float y1, float x2, float y2, float x3, float y3, float x4,
                        float y4, float& xi, float& yi);
bool INTERSECTION_POINT_8(double x1, double y1, double x2, double y2, double x3, double y3,
                          double x4, double y4, double& xi, double& yi);

/// True when (x, y) lies inside a region of one or more rings, by the even-odd rule: a ring inside
/// another one is a hole. Each ring of m vertices takes m + 2 positions of `px` and `py`: its
/// vertices, then the first two of them again. `n` counts all positions; `ends[k - 1]` is the
/// position, counted from 1, of the repeated first vertex of ring k, and the next ring starts two
/// positions behind it. `xmin` is the region's smallest x. Nothing beyond position n is read,
/// whatever `ends` says; when vertices are left behind the last ring, or `endCount` is not above 0,
/// a message is written and the run stops through EXITS.
bool INSIDE_POLYGON(float x, float y, const float* px, const float* py, std::int32_t n, float xmin,
                    const std::int32_t* ends, std::int32_t endCount);
bool INSIDE_POLYGON_8(double x, double y, const double* px, const double* py, std::int32_t n,
                      double xmin, const std::int32_t* ends, std::int32_t endCount);

/// The elevation at a point inside a triangle, on the plane of its three corners, in `z`. False,
/// with the null elevation, when the line from the third corner through the point is parallel to
/// that of the first two. Lengths have no sign: for a point outside, the result is a number, but
/// not always the plane's.
bool INTERPOLATE_TRIANGLE(float x, float y, const float tx[3], const float ty[3], const float tz[3],
                          float& z);
bool INTERPOLATE_TRIANGLE_8(double x, double y, const double tx[3], const double ty[3],
                            const float tz[3], float& z);

/// The elevation at a point inside an element of 3 or 4 corners, in `z`; with 4 the mean over those
/// triangles of three corners that hold the point. `xmin` is the element's smallest x. False, with
/// the null elevation, outside the element and for any other number of corners.
bool INTERPOLATE_ELEMENT_8(double x, double y, const double* ex, const double* ey, const float* ez,
                           std::int32_t corners, double xmin, float& z);

/// Moves the origin of `n` points to (x0, y0) and turns the axes by `angle` radians: the points in
/// the new system in `u` and `v`, which have n places each. Nothing is written if `n` is below 1.
void GEO_SHIFT(const double* x, const double* y, std::int32_t n, double x0, double y0, double angle,
               float* u, float* v);

/// The bounding box of `n` points and the rows and columns of a grid of square cells that it
/// covers. Cells are numbered from 1 at the origin; the first ones are not below 0 and the last
/// ones not above the limits. The outputs stay as they were if `n` is below 1.
void SET_SUB_GRID_AREA(const float* x, const float* y, std::int32_t n, float cellSize,
                       std::int32_t rowLimit, std::int32_t columnLimit, std::int32_t& firstRow,
                       std::int32_t& firstColumn, std::int32_t& lastRow, std::int32_t& lastColumn,
                       float& xmin, float& ymin, float& xmax, float& ymax);

/// The width of the water surface in a circle of `radius` filled to `depth`; 0 when the circle is
/// empty or full to within 0.00001.
float CIRCLE_WIDTH(float radius, float depth);

/// The wet part of one panel (x1, y1)-(x2, y2) of a cross-section under a water level: its flow
/// area, the width of its surface and its wetted perimeter. All are 0 for a dry panel and for one
/// whose `value` is not above 0.
void HYD_PARAM(float x1, float y1, float x2, float y2, float level, float value, float& area,
               float& width, float& perimeter);

/// The same for the two halves of a panel whose ends have a value each: the half next to (x1, y1)
/// has `value1`, the other one `value2`.
void HYD_PARAM2(float x1, float y1, float value1, float x2, float y2, float value2, float level,
                float& area1, float& area2, float& width1, float& width2, float& perimeter1,
                float& perimeter2);

}  // extern "C"

}  // namespace vantelgis
