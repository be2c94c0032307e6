#include "driver/interpolation.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vantelgis {
namespace {

// A section along the x axis. A vertex that did not snap starts with the polyline's elevation, 7.
constexpr VertexElevation kFree{7, false};
constexpr VertexElevation at(float z) {
    return {z, true};
}

struct Case {
    std::string name;
    std::vector<double> x;
    std::vector<VertexElevation> vertices;
    std::vector<float> expected;
    bool dangling;
};

TEST(Interpolation, FillsFromSnappedVertices) {
    const Case cases[] = {
        {"all snapped", {0, 1, 3}, {at(5), at(2), at(8)}, {5, 2, 8}, false},
        {"by distance along the line, there and back",
         {0, 3, 1, 2},
         {at(0), kFree, kFree, at(12)},
         {0, 6, 10, 12},
         false},
        // 8100 / 7 in 32 bits is 1157.1431 once the quotient has been rounded.
        {"rounded to 32 bits at each step",
         {0, 1, 7},
         {at(900), kFree, at(9000)},
         {900, 2057.1431F, 9000},
         false},
        {"only the middle one",
         {0, 1, 2, 3, 4},
         {kFree, kFree, at(3), kFree, kFree},
         {3, 3, 3, 3, 3},
         true},
        {"only the first one", {0, 1, 2}, {at(4), kFree, kFree}, {4, 4, 4}, true},
        {"only the last one", {0, 1, 2}, {kFree, kFree, at(4)}, {4, 4, 4}, true},
        {"free behind an interpolated run",
         {0, 1, 2, 3},
         {at(1), kFree, at(3), kFree},
         {1, 2, 3, 3},
         true},
        {"free before an interpolated run",
         {0, 1, 2, 3},
         {kFree, at(1), kFree, at(3)},
         {1, 1, 2, 3},
         true},
        {"twice the same place", {0, 1, 1, 4}, {at(0), kFree, kFree, at(8)}, {0, 2, 2, 8}, false},
        {"all at one place", {6, 6, 6, 6}, {at(1), kFree, kFree, at(4)}, {1, 2.5F, 2.5F, 4}, false},
        {"one vertex", {5}, {at(2)}, {2}, false},
    };
    for (const Case& test : cases) {
        std::vector<VertexElevation> vertices = test.vertices;
        const std::vector<double> y(test.x.size(), 0);
        EXPECT_EQ(interpolateElevations(test.x, y, vertices), test.dangling) << test.name;
        for (std::size_t i = 0; i < vertices.size(); ++i)
            EXPECT_EQ(vertices[i].z, test.expected[i]) << test.name << ", vertex " << i + 1;
    }
}

}  // namespace
}  // namespace vantelgis
