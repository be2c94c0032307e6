#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "convert/breakline_point.h"

namespace vantelgis {

/// Search trees over points that crowd in one place, where going through them one by one would
/// take a time that grows with their number at each vertex.
///
/// A branch halves its points along the longer side of the box around them and knows the lowest
/// index below it: if the vertex lies on that point it is the answer at once, and a box that is
/// outside the vertex's square, or has no index below the best so far, is passed over.
class PointTrees {
  public:
    /// Makes a tree of the points with these indices, at least one, and gives its number.
    std::int32_t build(std::span<const BreaklinePoint> points,
                       std::span<const std::int32_t> indices);

    /// The lowest index of a point of the tree on which a vertex at `x`, `y` lies, if it is below
    /// `best`; else `best`.
    [[nodiscard]] std::int32_t lowest(std::int32_t tree, std::span<const BreaklinePoint> points,
                                      double x, double y, std::int32_t best) const;

  private:
    struct Interval {
        double low;
        double high;
    };
    /// A branch or, if it has no `right`, a leaf with the indices from `first` to before `end` in
    /// rising order. A branch's left child stands directly behind it.
    struct Node {
        Interval x;
        Interval y;
        std::int32_t lowest;
        std::int32_t first;
        std::int32_t end;
        std::int32_t right;
    };
    struct Search {
        std::span<const BreaklinePoint> points;
        double x;
        double y;
        std::int32_t best;
    };

    static bool isOutside(const Interval& side, double coordinate);
    Node around(std::span<const BreaklinePoint> points, std::int32_t first, std::int32_t end) const;
    std::int32_t grow(std::span<const BreaklinePoint> points, std::int32_t first, std::int32_t end);
    void visit(std::int32_t number, Search& search) const;
    void visitLeaf(const Node& leaf, Search& search) const;

    std::vector<Node> nodes_;
    std::vector<std::int32_t> indices_;
};

}  // namespace vantelgis
