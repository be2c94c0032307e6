#include "toolkit/geometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "support/in_process_run.h"

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
    EXPECT_EQ(VECTOR_MAGNITUDE(-3, 4), 5);
    EXPECT_TRUE(SAME_POINT(1, 1, 1.25F, 0.75F, 0.5F));
    EXPECT_FALSE(SAME_POINT_8(6000000.125, 1, 6000000.25, 1, 0.125));

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
        const bool parallel = code <= 0;
        EXPECT_NE(INTERSECTION_POINT(x1, y1, x2, y2, x3, y3, x4, y4, xi, yi), parallel);
        EXPECT_NE(INTERSECTION_POINT_8(x1 + h, y1, x2 + h, y2, x3 + h, y3, x4 + h, y4, xi8, yi8),
                  parallel);
        EXPECT_TRUE(xi == x && yi == y && xi8 == x + h && yi8 == y) << xi << ' ' << yi8;
    }
    EXPECT_EQ(SAME_SIDE(0, 0, 4, 0, 1, 2, 3, -5), -160);
    EXPECT_EQ(SAME_SIDE_8(6e6 + 0.125, 0, 6e6 + 0.25, 0, 6e6, 1, 6e6, 2), 0.03125F);
    EXPECT_TRUE(INTERSECT_POINT(0, 0, 4, 2, 8, 4));  // beyond b, yet on the line
    EXPECT_FALSE(INTERSECT_POINT(0, 0, 4, 2, 8, 5));
}

using Ring = std::vector<std::pair<int, int>>;
const Ring kRings[] = {
    {{0, 0}, {12, 0}, {12, 4}, {8, 4}, {12, 8}, {6, 6}, {4, 8}, {2, 6}, {0, 8}, {1, 4}},
    {{3, 3}, {5, 1}, {7, 3}, {5, 5}}};

struct RegionArrays {
    std::vector<double> x, y;
    std::vector<int> ends;

    void add(const Ring& ring, std::size_t start, double east) {
        for (std::size_t i = start; i < start + ring.size() + 2; ++i) {
            x.push_back(ring[i % ring.size()].first + east);
            y.push_back(ring[i % ring.size()].second);
        }
        ends.push_back(static_cast<int>(x.size()) - 1);
    }
    bool holds(double px, double py, bool narrow) const {
        const int n = static_cast<int>(x.size()), count = static_cast<int>(ends.size());
        if (!narrow) return INSIDE_POLYGON_8(px, py, x.data(), y.data(), n, 0, ends.data(), count);
        const std::vector<float> fx(x.begin(), x.end()), fy(y.begin(), y.end());
        const auto pxf = static_cast<float>(px), pyf = static_cast<float>(py);
        return INSIDE_POLYGON(pxf, pyf, fx.data(), fy.data(), n, 0, ends.data(), count);
    }
};

// Exact crossings to the right, of edges half-open in y; nothing on the boundary.
std::optional<bool> holdsExactly(int x, int y) {
    bool inside = false;
    for (const Ring& ring : kRings) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const auto& [ax, ay] = ring[i];
            const auto& [bx, by] = ring[(i + 1) % ring.size()];
            const int cross = (bx - ax) * (y - ay) - (x - ax) * (by - ay);
            if (cross == 0 && (x - ax) * (x - bx) <= 0 && (y - ay) * (y - by) <= 0) return {};
            if ((ay > y) != (by > y) && (cross > 0) == (by > ay)) inside = !inside;
        }
    }
    return inside;
}

TEST(Region, HoldsItsPointsWhereverItsRingsBegin) {
    for (std::size_t start = 0; start < 2 * kRings[0].size(); ++start) {
        const bool narrow = start < kRings[0].size();
        const double east = narrow ? 0 : 6000000.25;
        RegionArrays region;
        for (const Ring& ring : kRings) region.add(ring, start, east);
        for (int x = -1; x < 14; ++x) {
            for (int y = -1; y < 10; ++y) {
                const bool found = region.holds(x + east, y, narrow);
                EXPECT_EQ(found, holdsExactly(x, y).value_or(found)) << x << ' ' << y;
            }
        }
    }
}

TEST(Region, EndsThatDoNotFitTheArrays) {
    for (const bool narrow : {false, true}) {
        RegionArrays region;
        region.add(kRings[1], 0, 0);
        region.ends = {400};  // nothing outside the arrays is read: sanitizers watch
        EXPECT_TRUE(region.holds(4, 3, narrow));
        region.add(kRings[1], 0, 0);
        region.ends = {5};
        const auto run = runInProcess([&] { region.holds(4, 3, narrow); });
        EXPECT_TRUE(run.ended);
        EXPECT_EQ(run.console,
                  "\nInvalid number of polygons in region sent to inside_polygon routine [" +
                      std::string(narrow ? "1" : "2") +
                      "] - contact support@vantelgis.example\n\nPress Enter to Close\n");
    }
}

TEST(Interpolation, OfTrianglesAndElements) {
    const double x[] = {0, 8, 8, 0}, y[] = {0, 0, 8, 8};
    const float fx[] = {0, 8, 8}, fy[] = {0, 0, 8}, z[] = {1, 5, 3, 10};
    // Point, elevation in the first triangle (1 + x / 2 - y / 4) and in the element.
    const float cases[][4] = {
        {3, 1, 2.25, 2.9375}, {6, 3, 3.25, 4.625}, {2, 5, -99999, 6.25}, {5, 7, -99999, 5.1875}};
    float found = 0;
    for (const auto& [px, py, triangle, element] : cases) {
        EXPECT_EQ(INTERPOLATE_ELEMENT_8(px, py, x, y, z, 3, 0, found), py < px);
        EXPECT_NEAR(found, triangle, 1e-6F);
        EXPECT_TRUE(INTERPOLATE_ELEMENT_8(px, py, x, y, z, 4, 0, found));
        EXPECT_NEAR(found, element, 1e-6F);
    }
    EXPECT_FALSE(INTERPOLATE_ELEMENT_8(3, 1, x, y, z, 5, 0, found));
    EXPECT_TRUE(INTERPOLATE_TRIANGLE(8, 8, fx, fy, z, found));
    EXPECT_EQ(found, 3);
    EXPECT_FALSE(INTERPOLATE_TRIANGLE_8(2, 8, x, y, z, found));  // level with the third corner
    EXPECT_EQ(found, -99999.0F);
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
