#include "convert/snapping.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace vantelgis {
namespace {

struct Place {
    double x;
    double y;
};
struct Layout {
    std::string name;
    std::vector<Place> points;
    std::vector<Place> vertices;
};

constexpr double kTolerance = 0.0010000000474974513;

std::int32_t scan(const std::vector<Place>& points, Place vertex) {
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (std::abs(points[i].x - vertex.x) < kTolerance &&
            std::abs(points[i].y - vertex.y) < kTolerance)
            return static_cast<std::int32_t>(i);
    }
    return kNoPoint;
}

// Every combination of two values.
template <typename... Values>
std::vector<Place> pairsOf(Values... values) {
    std::vector<Place> places;
    for (const double x : {values...})
        for (const double y : {values...}) places.push_back({x, y});
    return places;
}

// Points scattered over `extent` from `corner`, as multiples of `grid` if that is not 0; vertices
// beside them, up to 1.5 tolerances away or at exactly one.
Layout scattered(const std::string& name, Place corner, Place extent, double grid) {
    constexpr int kPoints = 3000;
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> unit(0, 1);
    std::uniform_real_distribution<double> beside(-1.5 * kTolerance, 1.5 * kTolerance);
    const auto snap = [&](double value) {
        return grid > 0 ? std::round(value / grid) * grid : value;
    };
    Layout layout{name, {}, {}};
    for (int i = 0; i < kPoints; ++i) {
        const Place point{snap(corner.x + unit(random) * extent.x),
                          snap(corner.y + unit(random) * extent.y)};
        layout.points.push_back(point);
        layout.vertices.push_back({point.x + beside(random), point.y + beside(random)});
        layout.vertices.push_back({point.x - kTolerance, point.y});
        layout.vertices.push_back({point.x, std::nextafter(point.y + kTolerance, point.y)});
    }
    return layout;
}

// All in one cell, in an order that leaves the wanted ones to the last.
Layout crowded(const std::string& name, double xStep, double yStep) {
    constexpr int kPoints = 5000;
    Layout layout{name, {}, {}};
    for (int i = 0; i < kPoints; ++i) {
        const Place point{500.0001 + i * xStep, 700.0001 + i * yStep};
        layout.points.push_back(point);
        layout.vertices.push_back({point.x + 0.0007, point.y - 0.0007});
        layout.vertices.push_back({point.x - 0.0009, point.y});
    }
    return layout;
}

std::vector<Layout> layouts() {
    using Limits = std::numeric_limits<double>;
    const double nan = Limits::quiet_NaN(), infinity = Limits::infinity(), most = Limits::max();
    const std::vector<Place> odd =
        pairsOf(0.0, -0.0, nan, infinity, -infinity, most, -most, 1e300, 9.1e16, -9.1e16, 0x1p53,
                0x1p53 + 2, 0x1p44, 0x1p44 + 0x1p-8, 0x1p43 + 0x1p-9, std::nextafter(0x1p43, 0.0),
                1e-320, -0.001, 0.001, -kTolerance, kTolerance);
    return {
        {"no points", {}, odd},
        {"odd values", odd, odd},
        scattered("site", {327'000, 6'250'000}, {20, 20}, 0),
        scattered("dense", {327'000, 6'250'000}, {0.05, 0.05}, 0),
        scattered("negative", {-327'000, -6'250'000}, {0.5, 0.5}, 0),
        scattered("around the origin", {-0.05, -0.05}, {0.1, 0.1}, 0),
        scattered("cell borders", {-0.5, 299'999.5}, {1, 1}, 0.01),
        scattered("tolerance apart", {-0.03, 1000}, {0.06, 0.06}, 0.001),
        scattered("north-south line", {327'000.37, 6'250'000}, {0, 5}, 0),
        scattered("coarse numbers", {0x1p43, -0x1p42}, {0.5, 0.5}, 0),
        scattered("one place", {327'000.37, 6'250'000.11}, {0, 0}, 0),
        crowded("west to east", 1.9e-6, 0),
        crowded("east to west", -2e-8, 1e-8),
        crowded("diagonal", 1.9e-6, -2e-8),
    };
}

TEST(Snapping, FindsWhatAScanFinds) {
    for (const Layout& layout : layouts()) {
        BreaklinePoints points;
        for (const Place& point : layout.points) points.add(point.x, point.y, 0);
        points.index();
        int wrong = 0;
        for (const Place& vertex : layout.vertices) {
            const std::int32_t expected = scan(layout.points, vertex);
            std::int32_t found = 0;
            points.find({&vertex.x, 1}, {&vertex.y, 1}, {&found, 1});
            if (found != expected && ++wrong < 4)
                ADD_FAILURE() << layout.name << ": " << vertex.x << ", " << vertex.y << " gives "
                              << found << " for " << expected;
        }
        EXPECT_EQ(wrong, 0) << layout.name;
    }
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
