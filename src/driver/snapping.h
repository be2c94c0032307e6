#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "driver/breakline_point.h"
#include "driver/point_trees.h"

namespace vantelgis {

/// The breakline points in read order, indexed from 0, and the search among them. Its answers are
/// those of a scan in read order; it costs about the same for any number of points.
///
/// Points are strung in buckets by the grid cell they lie in, lowest index first. A bit for each of
/// many more cells than there are buckets tells of most vertices that no point is near without a
/// look at the buckets. A string that turns out to be long becomes a tree.
class BreaklinePoints {
  public:
    /// Adds a point that no vertex has taken yet. Without memory the run stops.
    void add(double x, double y, float z);

    /// Makes the search ready; to be called behind the last `add`.
    void index();

    /// The lowest index of a point on which a vertex at `x`, `y` lies, kNoPoint if there is none.
    std::int32_t find(double x, double y);

    [[nodiscard]] std::size_t size() const { return points_.size(); }
    [[nodiscard]] const BreaklinePoint& operator[](std::size_t i) const { return points_[i]; }
    /// A vertex has taken the point's elevation.
    [[nodiscard]] bool used(std::size_t i) const { return used_[i]; }
    void use(std::size_t i) { used_[i] = true; }

  private:
    [[nodiscard]] std::uint64_t cellHash(std::int64_t column, std::int64_t row) const;
    [[nodiscard]] bool mayHold(std::uint64_t hash) const;
    void string(std::int32_t i);
    std::int32_t lowestIn(std::size_t bucket, double x, double y, std::int32_t best);
    void plantTree(std::size_t bucket);

    std::vector<BreaklinePoint> points_;
    std::vector<bool> used_;
    std::vector<std::uint64_t> mayHold_;  // a bit for each hash
    std::vector<std::int32_t> buckets_;   // the first point; or below kNoPoint, a tree
    PointTrees trees_;
    int hashShift_ = 0;
};

/// Gives the vertex at `x`, `y` the elevation of the first point it lies on, which then counts as
/// used, and is true; or gives it `elevation` and is false.
bool snapVertex(BreaklinePoints& points, double x, double y, float elevation, float& z);

}  // namespace vantelgis
