#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "batch/record.h"

/// Drawings of inputs as SVG, for a page.
namespace vantelgis::batch {

/// The drawing of one input, with an id by which others may use it; empty when it has none.
std::string planView(const Record& record);

/// What the colours stand for.
std::string planLegend();

/// Where the inputs lie, each by its own drawing on the page.
class Overview {
  public:
    void add(const Record& record);
    /// Bytes that the view may take.
    [[nodiscard]] std::size_t size() const;
    /// One drawing of all that lie together; empty with fewer than two.
    [[nodiscard]] std::string view() const;

  private:
    struct Placed {
        std::int64_t number;
        double west, north, side;
    };
    [[nodiscard]] std::vector<Placed> together() const;

    std::vector<Placed> placed_;
};

std::string escapedForHtml(std::string_view text);

}  // namespace vantelgis::batch
