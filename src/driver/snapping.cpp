#include "driver/snapping.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

#include "driver/tables.h"

namespace vantelgis {

namespace {

// Cells are wider than the square of a vertex, which then touches at most two in each direction.
constexpr double kCellsPerUnit = 100;

// The hash of a cell is the number of its bit; its bucket leaves out the last bits.
constexpr std::size_t kBitsPerPoint = 16;
constexpr int kBucketShift = 3;

// Longer strings of points become trees.
constexpr int kLongString = 32;

constexpr std::int32_t kFar = std::numeric_limits<std::int32_t>::max();

constexpr std::int32_t treeBehind(std::int32_t bucket) {
    return kNoPoint - 1 - bucket;
}

// All that is asked of a cell's number is that it never falls as the coordinate rises. So it can
// be cut towards 0, and far away, where neighbouring coordinates are many cells apart, be the same
// for all.
std::int64_t cellOf(double coordinate) {
    constexpr double kLimit = 9e18;
    return static_cast<std::int64_t>(std::clamp(coordinate * kCellsPerUnit, -kLimit, kLimit));
}

}  // namespace

void BreaklinePoints::add(double x, double y, float z) {
    addRow(points_, {x, y, z, kNoPoint});
}

void BreaklinePoints::index() {
    const std::size_t bits =
        std::bit_ceil(std::max<std::size_t>(points_.size() * kBitsPerPoint, 64));
    hashShift_ = 64 - std::countr_zero(bits);
    growOrStop([&] {
        used_.assign(points_.size(), false);
        mayHold_.assign(bits / 64, 0);
        buckets_.assign(bits >> kBucketShift, kNoPoint);
    });
    for (std::size_t i = points_.size(); i > 0; --i) string(static_cast<std::int32_t>(i - 1));
}

// Each point goes in front of those strung before it, so they are strung from the last on. No
// vertex lies on a point whose coordinates are not finite.
void BreaklinePoints::string(std::int32_t i) {
    BreaklinePoint& point = points_[static_cast<std::size_t>(i)];
    if (!std::isfinite(point.x) || !std::isfinite(point.y)) return;
    const std::uint64_t hash = cellHash(cellOf(point.x), cellOf(point.y));
    mayHold_[hash / 64] |= std::uint64_t{1} << hash % 64;
    std::int32_t& first = buckets_[hash >> kBucketShift];
    point.next = first;
    first = i;
}

// Multiplying spreads the cells over the high bits, shifting and multiplying again mends the
// patterns that rows and columns of cells would leave there.
std::uint64_t BreaklinePoints::cellHash(std::int64_t column, std::int64_t row) const {
    std::uint64_t hash = static_cast<std::uint64_t>(column) * 0x9E3779B97F4A7C15U +
                         static_cast<std::uint64_t>(row) * 0xC2B2AE3D27D4EB4FU;
    hash = (hash ^ hash >> 32) * 0xD6E8FEB86659FD93U;
    return hash >> hashShift_;
}

bool BreaklinePoints::mayHold(std::uint64_t hash) const {
    return (mayHold_[hash / 64] >> hash % 64 & 1) != 0;
}

std::int32_t BreaklinePoints::find(double x, double y) {
    if (!std::isfinite(x) || !std::isfinite(y)) return kNoPoint;
    const std::int64_t lastColumn = cellOf(x + kSnapTolerance);
    const std::int64_t lastRow = cellOf(y + kSnapTolerance);
    const std::int64_t firstRow = cellOf(y - kSnapTolerance);
    std::int32_t best = kFar;
    for (std::int64_t column = cellOf(x - kSnapTolerance); column <= lastColumn; ++column) {
        for (std::int64_t row = firstRow; row <= lastRow; ++row) {
            const std::uint64_t hash = cellHash(column, row);
            if (mayHold(hash)) best = lowestIn(hash >> kBucketShift, x, y, best);
        }
    }
    return best == kFar ? kNoPoint : best;
}

std::int32_t BreaklinePoints::lowestIn(std::size_t bucket, double x, double y, std::int32_t best) {
    int steps = 0;
    for (std::int32_t i = buckets_[bucket]; i > kNoPoint && i < best;) {
        const BreaklinePoint& point = points_[static_cast<std::size_t>(i)];
        if (liesOn(point, x, y)) return i;
        if (++steps > kLongString) plantTree(bucket);
        i = steps > kLongString ? buckets_[bucket] : point.next;
    }
    if (buckets_[bucket] >= kNoPoint) return best;
    return trees_.lowest(treeBehind(buckets_[bucket]), points_, x, y, best);
}

void BreaklinePoints::plantTree(std::size_t bucket) {
    std::vector<std::int32_t> indices;
    for (std::int32_t i = buckets_[bucket]; i != kNoPoint;
         i = points_[static_cast<std::size_t>(i)].next)
        addRow(indices, i);
    growOrStop([&] { buckets_[bucket] = treeBehind(trees_.plant(points_, indices)); });
}

bool snapVertex(BreaklinePoints& points, double x, double y, float elevation, float& z) {
    const std::int32_t found = points.find(x, y);
    if (found == kNoPoint) {
        z = elevation;
        return false;
    }
    const auto i = static_cast<std::size_t>(found);
    points.use(i);
    z = points[i].z;
    return true;
}

}  // namespace vantelgis
