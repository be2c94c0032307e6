#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace vantelgis {

// What passes between the conversions and the format families. Arrays start at index 0; the numbers
// kept in them (nodes, parts) count from 1.

/// What an object of a layer is.
enum class ObjectKind : std::uint8_t {
    unknown,  ///< no object was found, or one that no kind fits: a polyline of no parts
    none,     ///< an object without geometry
    point,
    line,           ///< of two points
    polyline,       ///< of one part
    multiPolyline,  ///< of several parts
    region,
    ellipse,    ///< no coordinates kept
    rect,       ///< two corners
    roundRect,  ///< two corners
    arc,        ///< no coordinates kept
    text,
    multiPoint,
};

/// An object of a layer without its coordinates.
struct GisObject {
    ObjectKind kind = ObjectKind::unknown;
    /// When read: parts of a polyline, polygons of a region, points of a multipoint.
    std::int32_t nParts = 1;
    /// For writing: the node (from 1) at which each part begins, rising strictly. None stands for
    /// one part.
    std::span<const std::int32_t> partStarts = {};
    std::string_view name = {};  ///< keyword or shape name, for messages; a text that lives on

    /// A line or polyline, of one or several parts.
    [[nodiscard]] bool isLineLike() const {
        return kind == ObjectKind::line || kind == ObjectKind::polyline ||
               kind == ObjectKind::multiPolyline;
    }
};

/// The coordinates of one object, or one part of it, as gisReadObject gives them. The arrays are
/// never cleared between objects: a number that a file leaves out keeps what stood in its place.
struct ObjectNodes {
    /// `limit` (at least 2) is the most nodes that one object, or part of one, may have.
    explicit ObjectNodes(std::int32_t limit) : maxNodes(limit) {}

    /// Room for `count` nodes, not above the limit. What is new holds zeros.
    void makeRoom(std::int64_t count) {
        const auto wanted = static_cast<std::size_t>(count);
        if (wanted <= x.size()) return;
        x.resize(wanted);
        y.resize(wanted);
    }
    /// The nodes of the object.
    [[nodiscard]] std::span<const double> xs() const { return {x.data(), size()}; }
    [[nodiscard]] std::span<const double> ys() const { return {y.data(), size()}; }
    [[nodiscard]] std::size_t size() const { return static_cast<std::size_t>(n); }

    std::int32_t maxNodes;
    std::int32_t n = 0;                              ///< nodes of this object
    std::vector<double> x = std::vector<double>(2);  ///< node 1 at index 0; at least two
    std::vector<double> y = std::vector<double>(2);
    std::vector<std::int32_t> ringEnds;  ///< of a region: the node of each polygon's last vertex
    bool centreRead = false;             ///< the file gives a region's centre:
    double xCentre = 0;
    double yCentre = 0;
};

/// The nodes of objects to write: the caller's arrays, which stay as they are until the next call
/// of `assign`, and what a text family made of them, so that a coordinate which is written as a
/// node of a polyline and as a point is formatted once.
class OutputNodes {
  public:
    OutputNodes() = default;
    OutputNodes(std::span<const double> x, std::span<const double> y) { assign(x, y); }

    void assign(std::span<const double> x, std::span<const double> y) {
        x_ = x;
        y_ = y;
        nTexts_ = 0;
    }
    [[nodiscard]] std::size_t size() const { return x_.size(); }
    [[nodiscard]] std::span<const double> x() const { return x_; }
    [[nodiscard]] std::span<const double> y() const { return y_; }

    /// Room for a text of `width` characters for each node.
    char* roomForTexts(std::size_t width) {
        textWidth_ = width;
        const std::size_t wanted = size() * width;
        if (texts_.size() < wanted)
            texts_.resize(wanted < 2 * texts_.size() ? 2 * texts_.size() : wanted);
        return texts_.data();
    }
    /// The texts of all nodes stand there.
    void keepTexts() { nTexts_ = size(); }
    /// That of node `i` (from 0), null if there is none.
    [[nodiscard]] const char* text(std::size_t i) const {
        return i < nTexts_ ? texts_.data() + i * textWidth_ : nullptr;
    }

  private:
    std::span<const double> x_;
    std::span<const double> y_;
    std::vector<char> texts_;
    std::size_t textWidth_ = 0;
    std::size_t nTexts_ = 0;
};

}  // namespace vantelgis
