#include "convert/point_trees.h"

#include <algorithm>
#include <cstddef>

namespace vantelgis {

namespace {

constexpr std::int32_t kLeafSize = 8;

constexpr std::size_t at(std::int32_t i) {
    return static_cast<std::size_t>(i);
}

}  // namespace

std::int32_t PointTrees::build(std::span<const BreaklinePoint> points,
                               std::span<const std::int32_t> indices) {
    const auto first = static_cast<std::int32_t>(indices_.size());
    indices_.insert(indices_.end(), indices.begin(), indices.end());
    return grow(points, first, static_cast<std::int32_t>(indices_.size()));
}

PointTrees::Node PointTrees::around(std::span<const BreaklinePoint> points, std::int32_t first,
                                    std::int32_t end) const {
    const BreaklinePoint& start = points[at(indices_[at(first)])];
    Node node{{start.x, start.x}, {start.y, start.y}, indices_[at(first)], first, end, 0};
    for (std::int32_t i = first; i < end; ++i) {
        const BreaklinePoint& point = points[at(indices_[at(i)])];
        node.x = {std::min(node.x.low, point.x), std::max(node.x.high, point.x)};
        node.y = {std::min(node.y.low, point.y), std::max(node.y.high, point.y)};
        node.lowest = std::min(node.lowest, indices_[at(i)]);
    }
    return node;
}

std::int32_t PointTrees::grow(std::span<const BreaklinePoint> points, std::int32_t first,
                              std::int32_t end) {
    const auto number = static_cast<std::int32_t>(nodes_.size());
    const Node node = around(points, first, end);
    nodes_.push_back(node);
    const double width = node.x.high - node.x.low;
    const double height = node.y.high - node.y.low;
    const auto begin = indices_.begin();
    if (end - first <= kLeafSize || (width <= 0 && height <= 0)) {
        std::sort(begin + first, begin + end);
        return number;
    }
    const auto coordinate = width > height ? &BreaklinePoint::x : &BreaklinePoint::y;
    const std::int32_t middle = first + (end - first) / 2;
    std::nth_element(begin + first, begin + middle, begin + end,
                     [&](std::int32_t a, std::int32_t b) {
                         return points[at(a)].*coordinate < points[at(b)].*coordinate;
                     });
    grow(points, first, middle);
    const std::int32_t right = grow(points, middle, end);
    nodes_[at(number)].right = right;
    return number;
}

std::int32_t PointTrees::lowest(std::int32_t tree, std::span<const BreaklinePoint> points, double x,
                                double y, std::int32_t best) const {
    Search found{points, x, y, best};
    visit(tree, found);
    return found.best;
}

// Rounded differences rise with the coordinate: where the nearer end of a side is too far away, all
// of it is.
void PointTrees::visit(std::int32_t number, Search& search) const {
    const Node& node = nodes_[at(number)];
    if (node.lowest >= search.best || isOutside(node.x, search.x) || isOutside(node.y, search.y))
        return;
    if (liesOn(search.points[at(node.lowest)], search.x, search.y)) {
        search.best = node.lowest;
    } else if (node.right == 0) {
        visitLeaf(node, search);
    } else {
        const std::int32_t left = number + 1;
        const bool leftFirst = nodes_[at(left)].lowest < nodes_[at(node.right)].lowest;
        visit(leftFirst ? left : node.right, search);
        visit(leftFirst ? node.right : left, search);
    }
}

bool PointTrees::isOutside(const Interval& side, double coordinate) {
    return side.low - coordinate >= kSnapTolerance || side.high - coordinate <= -kSnapTolerance;
}

void PointTrees::visitLeaf(const Node& leaf, Search& search) const {
    for (std::int32_t i = leaf.first; i < leaf.end; ++i) {
        const std::int32_t index = indices_[at(i)];
        if (index >= search.best) return;
        if (!liesOn(search.points[at(index)], search.x, search.y)) continue;
        search.best = index;
        return;
    }
}

}  // namespace vantelgis
