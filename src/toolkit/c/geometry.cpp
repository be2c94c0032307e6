#include "toolkit/geometry.h"
#include "toolkit/c/vantelgis.h"

using namespace vantelgis;

float vg_distance(float x1, float y1, float x2, float y2) {
    return DISTANCE(x1, y1, x2, y2);
}

float vg_distance_8(double x1, double y1, double x2, double y2) {
    return DISTANCE_8(x1, y1, x2, y2);
}

float vg_vector_magnitude(float vx, float vy) {
    return VECTOR_MAGNITUDE(vx, vy);
}

bool vg_same_point(float x1, float y1, float x2, float y2, float tolerance) {
    return SAME_POINT(x1, y1, x2, y2, tolerance);
}

bool vg_same_point_8(double x1, double y1, double x2, double y2, double tolerance) {
    return SAME_POINT_8(x1, y1, x2, y2, tolerance);
}

float vg_angle2d(double ax, double ay, double bx, double by, double cx, double cy, double dx,
                 double dy) {
    return ANGLE2D(ax, ay, bx, by, cx, cy, dx, dy);
}

float vg_same_side(float ax, float ay, float bx, float by, float cx, float cy, float dx, float dy) {
    return SAME_SIDE(ax, ay, bx, by, cx, cy, dx, dy);
}

float vg_same_side_8(double ax, double ay, double bx, double by, double cx, double cy, double dx,
                     double dy) {
    return SAME_SIDE_8(ax, ay, bx, by, cx, cy, dx, dy);
}

bool vg_intersect_point(float ax, float ay, float bx, float by, float px, float py) {
    return INTERSECT_POINT(ax, ay, bx, by, px, py);
}

bool vg_intersect_line(float ax, float ay, float bx, float by, float cx, float cy, float dx,
                       float dy) {
    return INTERSECT_LINE(ax, ay, bx, by, cx, cy, dx, dy);
}

bool vg_intersect_line_8(double ax, double ay, double bx, double by, double cx, double cy,
                         double dx, double dy) {
    return INTERSECT_LINE_8(ax, ay, bx, by, cx, cy, dx, dy);
}

int32_t vg_intersect_line_v2(float x1, float y1, float x2, float y2, float x3, float y3, float x4,
                             float y4) {
    return INTERSECT_LINE_V2(x1, y1, x2, y2, x3, y3, x4, y4);
}

int32_t vg_intersect_line_v2_8(double x1, double y1, double x2, double y2, double x3, double y3,
                               double x4, double y4) {
    return INTERSECT_LINE_V2_8(x1, y1, x2, y2, x3, y3, x4, y4);
}

bool vg_intersection_point(float x1, float y1, float x2, float y2, float x3, float y3, float x4,
                           float y4, float* xi, float* yi) {
    return INTERSECTION_POINT(x1, y1, x2, y2, x3, y3, x4, y4, *xi, *yi);
}

bool vg_intersection_point_8(double x1, double y1, double x2, double y2, double x3, double y3,
                             double x4, double y4, double* xi, double* yi) {
    return INTERSECTION_POINT_8(x1, y1, x2, y2, x3, y3, x4, y4, *xi, *yi);
}

bool vg_inside_polygon(float x, float y, const float* px, const float* py, int32_t n, float xmin,
                       const int32_t* ends, int32_t endCount) {
    return INSIDE_POLYGON(x, y, px, py, n, xmin, ends, endCount);
}

bool vg_inside_polygon_8(double x, double y, const double* px, const double* py, int32_t n,
                         double xmin, const int32_t* ends, int32_t endCount) {
    return INSIDE_POLYGON_8(x, y, px, py, n, xmin, ends, endCount);
}

bool vg_interpolate_triangle(float x, float y, const float tx[3], const float ty[3],
                             const float tz[3], float* z) {
    return INTERPOLATE_TRIANGLE(x, y, tx, ty, tz, *z);
}

bool vg_interpolate_triangle_8(double x, double y, const double tx[3], const double ty[3],
                               const float tz[3], float* z) {
    return INTERPOLATE_TRIANGLE_8(x, y, tx, ty, tz, *z);
}

bool vg_interpolate_element_8(double x, double y, const double* ex, const double* ey,
                              const float* ez, int32_t corners, double xmin, float* z) {
    return INTERPOLATE_ELEMENT_8(x, y, ex, ey, ez, corners, xmin, *z);
}

void vg_geo_shift(const double* x, const double* y, int32_t n, double x0, double y0, double angle,
                  float* u, float* v) {
    GEO_SHIFT(x, y, n, x0, y0, angle, u, v);
}

void vg_set_sub_grid_area(const float* x, const float* y, int32_t n, float cellSize,
                          int32_t rowLimit, int32_t columnLimit, int32_t* firstRow,
                          int32_t* firstColumn, int32_t* lastRow, int32_t* lastColumn, float* xmin,
                          float* ymin, float* xmax, float* ymax) {
    SET_SUB_GRID_AREA(x, y, n, cellSize, rowLimit, columnLimit, *firstRow, *firstColumn, *lastRow,
                      *lastColumn, *xmin, *ymin, *xmax, *ymax);
}

float vg_circle_width(float radius, float depth) {
    return CIRCLE_WIDTH(radius, depth);
}

void vg_hyd_param(float x1, float y1, float x2, float y2, float level, float value, float* area,
                  float* width, float* perimeter) {
    HYD_PARAM(x1, y1, x2, y2, level, value, *area, *width, *perimeter);
}

void vg_hyd_param2(float x1, float y1, float value1, float x2, float y2, float value2, float level,
                   float* area1, float* area2, float* width1, float* width2, float* perimeter1,
                   float* perimeter2) {
    HYD_PARAM2(x1, y1, value1, x2, y2, value2, level, *area1, *area2, *width1, *width2, *perimeter1,
               *perimeter2);
}
