#include <gtest/gtest.h>

#include <cmath>

#include "toolkit/geometry.h"

namespace vantelgis {
namespace {

TEST(Plane, DistancesAreZeroBelowAMillionthAndNarrowOnlyDifferences) {
    EXPECT_EQ(DISTANCE(0, 0, 1e-7F, -1e-7F), 0);
    EXPECT_EQ(DISTANCE(1, 1, -2, 5), 5);
    EXPECT_EQ(DISTANCE_8(0, 0, 1e-6, 0), 0x1.0c6f7ap-20F);
    EXPECT_EQ(DISTANCE_8(0, 0, 0, -1e-6), 0x1.0c6f7ap-20F);
    EXPECT_EQ(DISTANCE_8(0, 0, 12345.678, 9876.543), 0x1.ee1174p+13F);
    EXPECT_EQ(DISTANCE_8(6000000.125, 300000.0625, 6000000.5, 300000.5625), 0.625F);
    EXPECT_EQ(VECTOR_MAGNITUDE(-1e-6F, 1e-6F), 0);  // here the limit itself is nothing yet
    EXPECT_TRUE(SAME_POINT(1, 1, 1.25F, 0.75F, 0.5F));
    EXPECT_FALSE(SAME_POINT_8(6000000.125, 1, 6000000.25, 1, 0.125));
}

TEST(Plane, AnglesAreTakenBetweenDirectionsFrom0To180) {
    EXPECT_EQ(ANGLE2D(1, 1, 3, 3, 0, 0, 5, 0), 45);
    EXPECT_EQ(ANGLE2D(0, 0, -1, 1, 0, 0, -1, -1), 90);  // 135 and -135 degrees
    EXPECT_EQ(ANGLE2D(0, 0, 0, 1, 0, 0, 1, 0), 0);
    // Below the limit in 64 bits, but not below its 32-bit neighbour.
    EXPECT_EQ(ANGLE2D(0, 0, 9.999999999e-7, 1e-6, 0, 0, 1, 0), 0);
}

TEST(Plane, SegmentsAndLinesCrossAsInExactArithmetic) {
    // The segments, their code, whether they meet, where their lines cross (0 if parallel).
    const float cases[][12] = {
        {0, 0, 4, 4, 0, 4, 4, 0, 3, 1, 2, 2},      {0, 0, 4, 0, 0, 0, 0, 3, 4, 1, 0, 0},
        {0, 0, 4, 0, 2, -3, 2, 0, 3, 1, 2, 0},     {0, 0, 4, 0, 2, 0, 2, 3, 1, 1, 2, 0},
        {0, 0, 4, 0, 6, -1, 6, 1, 2, 0, 6, 0},     {6, -1, 6, 1, 0, 0, 4, 0, 1, 0, 6, 0},
        {0, 0, 1, 0, 5, 5, 6, 7, 4, 0, 2.5, 0},    {0, 0, 4, 2, 0, 1, 4, 3, 0, 0, 0, 0},
        {0, 0, 4, 2, 2, 1, 8, 4, -1, 1, 0, 0},     {2, 0, 2, 4, 6, 0, 6, 1, 0, 0, 0, 0},
        {1, 1, 5, 3, 0, 4, 8, 0, 3, 1, 3.5, 2.25}, {1, 1, 5, 3, 3, 0, 3, 8, 3, 1, 3, 2}};
    for (const auto& [x1, y1, x2, y2, x3, y3, x4, y4, code, meet, x, y] : cases) {
        const double h = 6000000.5;  // so far out 32 bits have no room for the same figure
        float xi = 0, yi = 0;
        double xi8 = h, yi8 = 0;
        EXPECT_EQ(INTERSECT_LINE(x1, y1, x2, y2, x3, y3, x4, y4), meet);
        EXPECT_EQ(INTERSECT_LINE_8(x1 + h, y1, x2 + h, y2, x3 + h, y3, x4 + h, y4), meet);
        EXPECT_EQ(INTERSECT_LINE_V2(x1, y1, x2, y2, x3, y3, x4, y4), code);
        EXPECT_EQ(INTERSECT_LINE_V2_8(x1 + h, y1, x2 + h, y2, x3 + h, y3, x4 + h, y4), code);
        INTERSECTION_POINT(x1, y1, x2, y2, x3, y3, x4, y4, xi, yi);
        INTERSECTION_POINT_8(x1 + h, y1, x2 + h, y2, x3 + h, y3, x4 + h, y4, xi8, yi8);
        EXPECT_TRUE(xi == x && yi == y && xi8 == x + h && yi8 == y) << xi << ' ' << yi8;
    }
    float xi = 0, yi = 0;
    EXPECT_FALSE(INTERSECTION_POINT(0, 0, 4, 2, 0, 1, 4, 3, xi, yi));
    EXPECT_EQ(SAME_SIDE(0, 0, 4, 0, 1, 2, 3, -5), -160);
    EXPECT_EQ(SAME_SIDE_8(6e6 + 0.125, 0, 6e6 + 0.25, 0, 6e6, 1, 6e6, 2), 0.03125F);
    EXPECT_TRUE(INTERSECT_POINT(0, 0, 4, 2, 8, 4));  // beyond b, yet on the line
    EXPECT_FALSE(INTERSECT_POINT(0, 0, 4, 2, 8, 5));
}

TEST(Plane, GridsShiftFarPointsBeforeNarrowingAndCutCellsTowardsZero) {
    const double east = 6000000, north = 300003.5;
    float u = 0, v = 0, west = 0, south = 0, xmax = 0, ymax = 0;
    GEO_SHIFT(&east, &north, 1, 5999998, 300000, std::acos(-1.0) / 2, &u, &v);
    EXPECT_TRUE(u == 3.5F && v == -2) << u << ' ' << v;

    const float x[] = {25, -5, 10}, y[] = {99, 20, -25};
    for (const float cell : {10.0F, 0.0F}) {
        std::int32_t row1 = -7, column1 = -7, row2 = -7, column2 = -7;
        SET_SUB_GRID_AREA(x, y, 3, cell, 8, 9, row1, column1, row2, column2, west, south, xmax,
                          ymax);
        EXPECT_TRUE(west == -5 && xmax == 25 && south == -25 && ymax == 99);
        // -0.5 is cut to 0, and cells of no size go to the borders.
        EXPECT_TRUE(column1 == (cell > 0 ? 1 : 0) && column2 == (cell > 0 ? 3 : 9));
        EXPECT_TRUE(row1 == 0 && row2 == 8);  // not -1, and the limit
    }
}

TEST(Plane, PanelsAtAndBetweenTheWaterLevels) {
    const float root104 = 10.198039F, root29 = 5.3851648F;
    const float cases[][8] = {{0, 5, 10, 7, 9, 30, 10, root104},
                              {0, 7, 10, 5, 7, 10, 10, root104},
                              {0, 5, 10, 9, 6, 1.25, 2.5, root29 / 2},
                              {0, 5, 10, 7, 4, 0, 0, 0},
                              {0, 9, 10, 5, 8, 11.25, 7.5, root29 * 1.5F},
                              {0, 5, 10, 5, 5, 0, 10, 10},
                              {0, 5, 10, 7, 5, 0, 0, 0},
                              {3, 2, 3, 6, 5, 0, 0, 3}};
    float area = -1, width = -1, perimeter = -1, dry[3] = {-1, -1, -1};
    for (const auto& [x1, y1, x2, y2, level, wetArea, wetWidth, wetPerimeter] : cases) {
        HYD_PARAM(x1, y1, x2, y2, level, 0.03F, area, width, perimeter);
        EXPECT_TRUE(area == wetArea && width == wetWidth) << area << ' ' << width;
        EXPECT_FLOAT_EQ(perimeter, wetPerimeter);
    }
    // The second half, from (10, 7) to (20, 9), is wet up to x = 15; the first has no value.
    HYD_PARAM2(0, 5, 0, 20, 9, 1, 8, dry[0], area, dry[1], width, dry[2], perimeter);
    EXPECT_TRUE(dry[0] == 0 && dry[1] == 0 && dry[2] == 0 && area == 2.5F && width == 5);

    EXPECT_EQ(CIRCLE_WIDTH(5, 8), 8);
    EXPECT_EQ(CIRCLE_WIDTH(1, 2), 0);
    EXPECT_EQ(CIRCLE_WIDTH(1, 0.000009F), 0);
}

}  // namespace
}  // namespace vantelgis
