/* Plane geometry; see vantelgis.h. */
#ifndef VANTELGIS_GEOMETRY_H
#define VANTELGIS_GEOMETRY_H

// NOLINTBEGIN(modernize-*): this header is C
#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

// Plane geometry. Lengths are in the unit of the coordinates; with the suffix _8 those are of 64
// bits.

// vg_distance(0, 0, 3, 4) -> 5
float vg_distance(float x1, float y1, float x2, float y2);
// vg_distance_8(300000, 6000000, 300003, 6000004) -> 5
float vg_distance_8(double x1, double y1, double x2, double y2);
// vg_vector_magnitude(-3, 4) -> 5
float vg_vector_magnitude(float vx, float vy);
// vg_same_point(1, 1, 1.25, 0.75, 0.5) -> true
bool vg_same_point(float x1, float y1, float x2, float y2, float tolerance);
// vg_same_point_8(1, 1, 1.5, 1, 0.5) -> false
bool vg_same_point_8(double x1, double y1, double x2, double y2, double tolerance);
// vg_angle2d(1, 1, 3, 3, 0, 0, 5, 0) -> 45
float vg_angle2d(double ax, double ay, double bx, double by, double cx, double cy, double dx,
                 double dy);
// vg_same_side(0, 0, 4, 0, 1, 2, 3, -5) -> -160
float vg_same_side(float ax, float ay, float bx, float by, float cx, float cy, float dx, float dy);
// vg_same_side_8(0, 0, 4, 0, 1, 2, 3, -5) -> -160
float vg_same_side_8(double ax, double ay, double bx, double by, double cx, double cy, double dx,
                     double dy);
// vg_intersect_point(0, 0, 4, 2, 8, 4) -> true
bool vg_intersect_point(float ax, float ay, float bx, float by, float px, float py);
// vg_intersect_line(0, 0, 4, 4, 0, 4, 4, 0) -> true
bool vg_intersect_line(float ax, float ay, float bx, float by, float cx, float cy, float dx,
                       float dy);
// vg_intersect_line_8(0, 0, 1, 0, 5, 5, 6, 7) -> false
bool vg_intersect_line_8(double ax, double ay, double bx, double by, double cx, double cy,
                         double dx, double dy);
// vg_intersect_line_v2(0, 0, 4, 4, 0, 4, 4, 0) -> 3
int32_t vg_intersect_line_v2(float x1, float y1, float x2, float y2, float x3, float y3, float x4,
                             float y4);
// vg_intersect_line_v2_8(0, 0, 4, 2, 0, 1, 4, 3) -> 0
int32_t vg_intersect_line_v2_8(double x1, double y1, double x2, double y2, double x3, double y3,
                               double x4, double y4);
// vg_intersection_point(0, 0, 4, 4, 0, 4, 4, 0) -> true, 2, 2
bool vg_intersection_point(float x1, float y1, float x2, float y2, float x3, float y3, float x4,
                           float y4, float* xi, float* yi);
// vg_intersection_point_8(1, 1, 5, 3, 0, 4, 8, 0) -> true, 3.5, 2.25
bool vg_intersection_point_8(double x1, double y1, double x2, double y2, double x3, double y3,
                             double x4, double y4, double* xi, double* yi);
// vg_inside_polygon(1, 1, [0, 4, 4, 0, 0, 4], [0, 0, 4, 4, 0, 0], 6, 0, [5], 1) -> true
bool vg_inside_polygon(float x, float y, const float* px, const float* py, int32_t n, float xmin,
                       const int32_t* ends, int32_t endCount);
// vg_inside_polygon_8(5, 1, [0, 4, 4, 0, 0, 4], [0, 0, 4, 4, 0, 0], 6, 0, [5], 1) -> false
bool vg_inside_polygon_8(double x, double y, const double* px, const double* py, int32_t n,
                         double xmin, const int32_t* ends, int32_t endCount);
// vg_interpolate_triangle(1, 1, [0, 4, 0], [0, 0, 4], [10, 14, 14]) -> true, 12
bool vg_interpolate_triangle(float x, float y, const float tx[3], const float ty[3],
                             const float tz[3], float* z);
// vg_interpolate_triangle_8(1, 1, [0, 4, 0], [0, 0, 4], [10, 14, 14]) -> true, 12
bool vg_interpolate_triangle_8(double x, double y, const double tx[3], const double ty[3],
                               const float tz[3], float* z);
// vg_interpolate_element_8(1, 1, [0, 4, 4, 0], [0, 0, 4, 4], [10, 14, 18, 14], 4, 0) -> true, 12
bool vg_interpolate_element_8(double x, double y, const double* ex, const double* ey,
                              const float* ez, int32_t corners, double xmin, float* z);
// vg_geo_shift([3], [1], 1, 1, 1, 0) -> [2], [0]
void vg_geo_shift(const double* x, const double* y, int32_t n, double x0, double y0, double angle,
                  float* u, float* v);
// vg_set_sub_grid_area([1, 25], [1, 15], 2, 10, 9, 9) -> 1, 1, 2, 3, 1, 1, 25, 15
void vg_set_sub_grid_area(const float* x, const float* y, int32_t n, float cellSize,
                          int32_t rowLimit, int32_t columnLimit, int32_t* firstRow,
                          int32_t* firstColumn, int32_t* lastRow, int32_t* lastColumn, float* xmin,
                          float* ymin, float* xmax, float* ymax);
// vg_circle_width(1, 1) -> 2
float vg_circle_width(float radius, float depth);
// vg_hyd_param(0, 2, 4, 0, 1, 0.03) -> 1, 2, 2.2360680
void vg_hyd_param(float x1, float y1, float x2, float y2, float level, float value, float* area,
                  float* width, float* perimeter);
// vg_hyd_param2(0, 0, 1, 4, 0, 1, 1) -> 2, 2, 2, 2, 2, 2
void vg_hyd_param2(float x1, float y1, float value1, float x2, float y2, float value2, float level,
                   float* area1, float* area2, float* width1, float* width2, float* perimeter1,
                   float* perimeter2);

#ifdef __cplusplus
}
#endif

// NOLINTEND(modernize-*)
#endif
