#include "convert/snapping.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace vantelgis {
namespace {

using Place = std::array<double, 2>;
using Places = std::vector<Place>;
constexpr double kTolerance = 0.0010000000474974513;

// The search gives each vertex what a scan of the points gives: the first that is near enough.
void expectScanned(const char* layout, const Places& places, const Places& vertices) {
    BreaklinePoints points;
    for (const auto& [x, y] : places) points.add(x, y, 0);
    points.index();
    int wrong = 0;
    for (const Place& v : vertices) {
        const auto first = std::ranges::find_if(places, [&v](const Place& p) {
            return std::abs(p[0] - v[0]) < kTolerance && std::abs(p[1] - v[1]) < kTolerance;
        });
        const auto expected = first == places.end() ? kNoPoint : first - places.begin();
        std::int32_t found = 0;
        points.find({v.data(), 1}, {&v[1], 1}, {&found, 1});
        if (found != expected && ++wrong < 4)
            ADD_FAILURE() << layout << ": " << v[0] << ", " << v[1] << " gives " << found;
    }
    EXPECT_EQ(wrong, 0) << layout;
}

// Points scattered over `extent` from `corner`, as multiples of `grid` if that is not 0; vertices
// up to 1.5 tolerances away or at exactly one.
void expectScattered(const char* layout, Place corner, Place extent, double grid) {
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> unit(0, 1), away(-1.5 * kTolerance, 1.5 * kTolerance);
    Places points, vertices;
    for (int i = 0; i < 3000; ++i) {
        Place p{};
        for (std::size_t axis : {0U, 1U}) {
            p[axis] = corner[axis] + unit(random) * extent[axis];
            if (grid > 0) p[axis] = std::round(p[axis] / grid) * grid;
        }
        points.push_back(p);
        vertices.insert(vertices.end(), {{p[0] + away(random), p[1] + away(random)},
                                         {p[0] - kTolerance, p[1]},
                                         {p[0], std::nextafter(p[1] + kTolerance, p[1])}});
    }
    expectScanned(layout, points, vertices);
}

// All in one cell, in an order that leaves the wanted ones to the last.
void expectCrowded(const char* layout, double xStep, double yStep) {
    Places points, vertices;
    for (int i = 0; i < 5000; ++i) {
        const Place p{500.0001 + i * xStep, 700.0001 + i * yStep};
        points.push_back(p);
        vertices.insert(vertices.end(), {{p[0] + 0.0007, p[1] - 0.0007}, {p[0] - 0.0009, p[1]}});
    }
    expectScanned(layout, points, vertices);
}

TEST(Snapping, FindsWhatAScanFinds) {
    using Limits = std::numeric_limits<double>;
    Places odd;
    const std::vector<double> values{0.0,
                                     -0.0,
                                     Limits::quiet_NaN(),
                                     Limits::infinity(),
                                     -Limits::infinity(),
                                     Limits::max(),
                                     Limits::lowest(),
                                     1e300,
                                     9.1e16,
                                     -9.1e16,
                                     0x1p53,
                                     0x1p53 + 2,
                                     0x1p44,
                                     0x1p44 + 0x1p-8,
                                     0x1p43 + 0x1p-9,
                                     std::nextafter(0x1p43, 0.0),
                                     1e-320,
                                     -0.001,
                                     0.001,
                                     -kTolerance,
                                     kTolerance};
    for (const double x : values)
        for (const double y : values) odd.push_back({x, y});
    expectScanned("no points", {}, odd);
    expectScanned("odd values", odd, odd);
    expectScattered("site", {327'000, 6'250'000}, {20, 20}, 0);
    expectScattered("dense", {327'000, 6'250'000}, {0.05, 0.05}, 0);
    expectScattered("negative", {-327'000, -6'250'000}, {0.5, 0.5}, 0);
    expectScattered("around the origin", {-0.05, -0.05}, {0.1, 0.1}, 0);
    expectScattered("cell borders", {-0.5, 299'999.5}, {1, 1}, 0.01);
    expectScattered("tolerance apart", {-0.03, 1000}, {0.06, 0.06}, 0.001);
    expectScattered("north-south line", {327'000.37, 6'250'000}, {0, 5}, 0);
    expectScattered("coarse numbers", {0x1p43, -0x1p42}, {0.5, 0.5}, 0);
    expectScattered("one place", {327'000.37, 6'250'000.11}, {0, 0}, 0);
    expectCrowded("west to east", 1.9e-6, 0);
    expectCrowded("east to west", -2e-8, 1e-8);
    expectCrowded("diagonal", 1.9e-6, -2e-8);
}

TEST(Snapping, FirstPointServesEveryVertex) {
    BreaklinePoints points;
    points.add(10, 20, 1.5F);
    points.add(10, 20, 2.5F);
    points.add(10.0015, 20, 3.5F);
    points.index();
    // More vertices than are looked up at once, in turns on the first point and on none.
    constexpr std::size_t kVertices = 2 * BreaklinePoints::kBlock + 3;
    std::vector<double> x(kVertices, 10.0009);
    for (std::size_t i = 1; i < kVertices; i += 2) x[i] = 9.998;
    const std::vector<double> y(kVertices, 19.9991);
    std::vector<VertexElevation> vertices(kVertices);
    EXPECT_TRUE(snapVertices(points, x, y, 9, vertices));
    for (std::size_t i = 0; i < kVertices; ++i) {
        const bool onPoint = i % 2 == 0;
        EXPECT_TRUE(vertices[i].snapped == onPoint && vertices[i].z == (onPoint ? 1.5F : 9)) << i;
    }
    EXPECT_TRUE(points.used(0) && !points.used(1) && !points.used(2));
    EXPECT_FALSE(snapVertices(points, std::vector{5.0}, std::vector{5.0}, 9, {vertices.data(), 1}));
}

}  // namespace
}  // namespace vantelgis
