#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "batch/record.h"

/// What a plan of an input shows, kept small while it is collected: with more points than a drawing
/// needs, those that lie close together go.
namespace vantelgis::batch {

/// What a path of a drawing stands for; the order is that in which they are drawn.
enum class Shown { passedOver, converted, dangling, danglingEnd, unsnapped };
inline constexpr int kShown = 5;

class Drawing {
  public:
    void want() { wanted_ = true; }
    [[nodiscard]] bool wanted() const { return wanted_; }

    /// Adds a line, or a point when there is one node.
    void add(Shown shown, std::span<const double> x, std::span<const double> y);

    /// The drawing as a text: a line with the west and north end of a square, its side, and how
    /// much of its height is used; then for each kind that is there its number, a colon and path
    /// data of SVG in that square, which is 1000 wide, with y downward. Of about `most` bytes at
    /// the most; empty when there is nothing.
    [[nodiscard]] std::string text(std::size_t most) const;

  private:
    struct Path {
        Shown shown;
        std::size_t start;  // of its nodes
        std::size_t count;
    };
    void thin();
    [[nodiscard]] std::string pathData(const Path& path, double scale) const;

    bool wanted_ = false;
    std::vector<Path> paths_;
    std::vector<double> x_;
    std::vector<double> y_;
    Box box_;
    double tolerance_ = 0;
};

}  // namespace vantelgis::batch
