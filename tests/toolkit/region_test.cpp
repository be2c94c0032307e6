#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "run/stop.h"
#include "support/in_process_run.h"
#include "toolkit/geometry.h"

namespace vantelgis {

namespace {

using Ring = std::vector<std::pair<int, int>>;
const Ring kOuter = {{0, 0}, {12, 0}, {12, 4}, {8, 4}, {12, 8},
                     {6, 6}, {4, 8},  {2, 6},  {0, 8}, {1, 4}};
const Ring kHole = {{3, 3}, {5, 1}, {7, 3}, {5, 5}};

struct Region {
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

TEST(Region, HoldsThePointsOfTheMapWhereverItsRingsBegin) {
    // From worked_values.py: y from 9 down, x from -1 up, either answer on the boundary (?).
    const std::string map =
        "................?...?.......?...?.?#?...?#?....#?###?###?.....####?###?...."
        "..?##?.?#?????...##?...?####?...###?.?#####?...####?######?..?????????????."
        "...............";
    for (std::size_t start = 0; start < 2 * kOuter.size(); ++start) {
        const bool narrow = start < kOuter.size();
        const double east = narrow ? 0 : 6000000.25;
        Region region;
        region.add(kOuter, start, east);
        region.add(kHole, start, east);
        for (int i = 0; i < 11 * 15; ++i) {
            const char place = map[static_cast<std::size_t>(i)];
            const int x = i % 15 - 1, y = 9 - i / 15;
            if (place == '?') continue;
            EXPECT_EQ(region.holds(x + east, y, narrow), place == '#') << x << ' ' << y;
        }
    }
}

TEST(Region, EndsThatDoNotFitTheArrays) {
    for (const bool narrow : {false, true}) {
        Region region;
        region.add(kHole, 0, 0);
        region.ends = {400};  // nothing outside the arrays is read: sanitizers watch
        EXPECT_TRUE(region.holds(4, 3, narrow));
        region.add(kHole, 0, 0);
        region.ends = {5};
        const auto run = runInProcess([&] { region.holds(4, 3, narrow); });
        EXPECT_TRUE(run.ended);
        EXPECT_EQ(run.console,
                  "\nInvalid number of polygons in region sent to inside_polygon routine [" +
                      std::string(narrow ? "1" : "2") + "] - contact " +
                      std::string(SUPPORT_ADDRESS) + "\n\nPress Enter to Close\n");
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
    EXPECT_TRUE(INTERPOLATE_TRIANGLE(8, 8, fx, fy, z, found));
    EXPECT_EQ(found, 3);
    EXPECT_FALSE(INTERPOLATE_TRIANGLE_8(2, 8, x, y, z, found));  // level with the third corner
    EXPECT_EQ(found, -99999.0F);
}

}  // namespace
}  // namespace vantelgis
