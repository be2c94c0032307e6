#include "convert/snapping.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

#include "convert/tables.h"

namespace vantelgis {

namespace {

// Cells are wider than the square of a vertex, which then touches at most two in each direction.
constexpr double kCellsPerUnit = 100;

// The hash of a cell is the number of its bit; its bucket leaves out the last bits.
constexpr std::size_t kBitsPerPoint = 16;
constexpr int kBucketShift = 3;

// What a bucket has behind so many points becomes a tree.
constexpr int kLongBucket = 32;

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
    for (std::size_t i = points_.size(); i > 0; --i) addToBucket(static_cast<std::int32_t>(i - 1));
}

// A bucket is a list. Each point goes in front of those added before it, so the points are added
// from the last one on. No vertex lies on a point whose coordinates are not finite.
void BreaklinePoints::addToBucket(std::int32_t i) {
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

// Cells that the vertices of a block touch, in the order of the vertices.
struct BreaklinePoints::Lookups {
    struct Lookup {
        std::uint64_t hash;
        std::int32_t vertex;
    };
    Lookup cells[4 * kBlock];
    std::size_t n = 0;
};

void BreaklinePoints::lookUpCells(Lookups& lookups, std::int32_t vertex, double x, double y) const {
    if (!std::isfinite(x) || !std::isfinite(y)) return;
    const std::int64_t lastColumn = cellOf(x + kSnapTolerance);
    const std::int64_t lastRow = cellOf(y + kSnapTolerance);
    const std::int64_t firstRow = cellOf(y - kSnapTolerance);
    for (std::int64_t column = cellOf(x - kSnapTolerance); column <= lastColumn; ++column) {
        for (std::int64_t row = firstRow; row <= lastRow; ++row) {
            const std::uint64_t hash = cellHash(column, row);
            __builtin_prefetch(&mayHold_[hash / 64]);
            lookups.cells[lookups.n++] = {hash, vertex};
        }
    }
}

void BreaklinePoints::dropEmptyCells(Lookups& lookups) const {
    std::size_t kept = 0;
    for (std::size_t i = 0; i < lookups.n; ++i) {
        const Lookups::Lookup lookup = lookups.cells[i];
        if (!mayHold(lookup.hash)) continue;
        __builtin_prefetch(&buckets_[lookup.hash >> kBucketShift]);
        lookups.cells[kept++] = lookup;
    }
    lookups.n = kept;
}

void BreaklinePoints::find(std::span<const double> x, std::span<const double> y,
                           std::span<std::int32_t> found) {
    Lookups lookups;
    for (std::size_t i = 0; i < x.size(); ++i)
        lookUpCells(lookups, static_cast<std::int32_t>(i), x[i], y[i]);
    dropEmptyCells(lookups);
    const std::span cells(lookups.cells, lookups.n);
    for (const auto& [hash, vertex] : cells) {
        const std::int32_t first = buckets_[hash >> kBucketShift];
        if (first > kNoPoint) __builtin_prefetch(&points_[static_cast<std::size_t>(first)]);
    }
    std::fill(found.begin(), found.end(), kFar);
    for (const auto& [hash, vertex] : cells) {
        const auto i = static_cast<std::size_t>(vertex);
        found[i] = lowestIn(hash >> kBucketShift, x[i], y[i], found[i]);
    }
    std::replace(found.begin(), found.end(), kFar, kNoPoint);
}

std::int32_t BreaklinePoints::lowestIn(std::size_t bucket, double x, double y, std::int32_t best) {
    std::int32_t i = buckets_[bucket];
    for (int steps = 1; i > kNoPoint && i < best; ++steps) {
        BreaklinePoint& point = points_[static_cast<std::size_t>(i)];
        if (liesOn(point, x, y)) return i;
        if (steps == kLongBucket && point.next > kNoPoint) buildTree(point);
        i = point.next;
    }
    return i < kNoPoint ? trees_.lowest(treeBehind(i), points_, x, y, best) : best;
}

// Makes a tree of all points that its bucket has behind this one.
void BreaklinePoints::buildTree(BreaklinePoint& last) {
    std::vector<std::int32_t> indices;
    for (std::int32_t i = last.next; i != kNoPoint; i = points_[static_cast<std::size_t>(i)].next)
        addRow(indices, i);
    growOrStop([&] { last.next = treeBehind(trees_.build(points_, indices)); });
}

bool snapVertices(BreaklinePoints& points, std::span<const double> x, std::span<const double> y,
                  float elevation, std::span<VertexElevation> vertices) {
    std::int32_t found[BreaklinePoints::kBlock];
    bool any = false;
    for (std::size_t start = 0; start < vertices.size(); start += BreaklinePoints::kBlock) {
        const std::size_t n = std::min(vertices.size() - start, BreaklinePoints::kBlock);
        points.find(x.subspan(start, n), y.subspan(start, n), std::span(found, n));
        for (std::size_t i = 0; i < n; ++i) {
            const bool snapped = found[i] != kNoPoint;
            vertices[start + i] = {elevation, snapped};
            if (!snapped) continue;
            const auto point = static_cast<std::size_t>(found[i]);
            points.use(point);
            vertices[start + i].z = points[point].z;
            any = true;
        }
    }
    return any;
}

}  // namespace vantelgis
