#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "convert/breakline_point.h"
#include "convert/interpolation.h"
#include "convert/point_trees.h"

namespace vantelgis {

/// The breakline points in read order, indexed from 0, and the search among them. Its answers are
/// those of a scan in read order; it costs about the same for any number of points.
///
/// Points are listed in buckets by the grid cell they lie in, lowest index first. A bit for each of
/// many more cells than there are buckets shows of most vertices that no point is near without a
/// look at the buckets. The far end of a list that turns out to be long becomes a tree.
class BreaklinePoints {
  public:
    /// Adds a point that no vertex has taken yet. Without memory the run stops.
    void add(double x, double y, float z);

    /// Makes the search ready; to be called behind the last `add`.
    void index();

    /// For each of at most kBlock vertices at `x`, `y`: the lowest index of a point on which it
    /// lies, kNoPoint if there is none. They are looked up together because their buckets and
    /// points are all over the memory, and asking for many at once hides the wait for each.
    void find(std::span<const double> x, std::span<const double> y, std::span<std::int32_t> found);
    static constexpr std::size_t kBlock = 64;

    [[nodiscard]] std::size_t size() const { return points_.size(); }
    [[nodiscard]] const BreaklinePoint& operator[](std::size_t i) const { return points_[i]; }
    /// A vertex has taken the point's elevation.
    [[nodiscard]] bool used(std::size_t i) const { return used_[i]; }
    void use(std::size_t i) { used_[i] = true; }

  private:
    [[nodiscard]] std::uint64_t cellHash(std::int64_t column, std::int64_t row) const;
    struct Lookups;
    void lookUpCells(Lookups& lookups, std::int32_t vertex, double x, double y) const;
    void dropEmptyCells(Lookups& lookups) const;
    [[nodiscard]] bool mayHold(std::uint64_t hash) const;
    void addToBucket(std::int32_t i);
    std::int32_t lowestIn(std::size_t bucket, double x, double y, std::int32_t best);
    void buildTree(BreaklinePoint& last);

    std::vector<BreaklinePoint> points_;
    std::vector<bool> used_;
    std::vector<std::uint64_t> mayHold_;  // a bit for each hash
    std::vector<std::int32_t> buckets_;   // the first point
    PointTrees trees_;
    int hashShift_ = 0;
};

/// Gives each vertex at `x`, `y` the elevation of the first point on which it lies, which then
/// counts as used; or else `elevation`. True if any vertex snapped.
bool snapVertices(BreaklinePoints& points, std::span<const double> x, std::span<const double> y,
                  float elevation, std::span<VertexElevation> vertices);

}  // namespace vantelgis
