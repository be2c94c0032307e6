#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace bench {

struct GridPoint {
    double x, y;
    float z;
    bool used;
    std::int32_t next;  // in the same slot, -1 behind the last
};

// Points in a hash table of square cells of a centimetre, in chains by index. That is ten times the
// tolerance: few vertices look into more than one cell, and points that stand close don't crowd
// one.
class PointGrid {
  public:
    std::vector<GridPoint> points;

    // Sorts the points in; none comes afterwards.
    void build() {
        while (heads_.size() < 2 * points.size()) heads_.resize(2 * heads_.size());
        shift_ = 64 - __builtin_ctzll(heads_.size());
        std::fill(heads_.begin(), heads_.end(), -1);
        for (auto i = static_cast<std::int32_t>(points.size()); i-- > 0;) {
            GridPoint& point = points[static_cast<std::size_t>(i)];
            std::int32_t& head = heads_[slot(cellOf(point.x), cellOf(point.y))];
            point.next = head;
            head = i;
        }
    }

    // The first point within the tolerance of a place along both axes, null if there is none.
    GridPoint* find(double x, double y) {
        std::int32_t best = kNone;
        const std::int64_t right = cellOf(x + kTolerance);
        const std::int64_t top = cellOf(y + kTolerance);
        for (std::int64_t column = cellOf(x - kTolerance); column <= right; ++column)
            for (std::int64_t row = cellOf(y - kTolerance); row <= top; ++row)
                best = std::min(best, firstIn(column, row, x, y));
        return best == kNone ? nullptr : &points[static_cast<std::size_t>(best)];
    }

  private:
    static constexpr double kTolerance = static_cast<double>(0.001F);
    static constexpr double kCellsToAMetre = 100;
    static constexpr std::int32_t kNone = 0x7FFFFFFF;

    static std::int64_t cellOf(double value) {
        const double cells = value * kCellsToAMetre;
        const auto cell = static_cast<std::int64_t>(cells);
        return cell - (static_cast<double>(cell) > cells ? 1 : 0);
    }
    [[nodiscard]] std::size_t slot(std::int64_t column, std::int64_t row) const {
        const auto mixed = static_cast<std::uint64_t>(column) * 0x9e3779b97f4a7c15U +
                           static_cast<std::uint64_t>(row) * 0xc2b2ae3d27d4eb4fU;
        return (mixed ^ (mixed >> 29)) * 0xbf58476d1ce4e5b9U >> shift_;
    }
    [[nodiscard]] std::int32_t firstIn(std::int64_t column, std::int64_t row, double x,
                                       double y) const {
        for (std::int32_t i = heads_[slot(column, row)]; i >= 0;) {
            const GridPoint& point = points[static_cast<std::size_t>(i)];
            if (std::fabs(point.x - x) < kTolerance && std::fabs(point.y - y) < kTolerance)
                return i;
            i = point.next;
        }
        return kNone;
    }

    std::vector<std::int32_t> heads_ = std::vector<std::int32_t>(16);
    int shift_ = 60;
};

}  // namespace bench
