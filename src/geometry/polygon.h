#pragma once

#include <cstdint>

#include "geometry/crossing.h"

namespace vantelgis {

/// A region of one or more rings; a ring inside another one is a hole. Each ring of m vertices
/// takes m + 2 positions: its vertices, then the first two of them again.
template <typename Coordinate>
struct Region {
    const Coordinate* px;
    const Coordinate* py;
    std::int64_t n;            ///< all positions of `px` and `py`
    const std::int32_t* ends;  ///< of ring k (from 0), where its first vertex is repeated (from 1)
    std::int32_t endCount;     ///< the rings
    Coordinate xmin;           ///< the smallest x

    // Positions count from 1.
    [[nodiscard]] Coordinate x(std::int64_t position) const { return px[position - 1]; }
    [[nodiscard]] Coordinate y(std::int64_t position) const { return py[position - 1]; }
};

enum class Location {
    outside,
    inside,
    unknown,  ///< vertices are left behind the last ring
};

/// The y that the boundary comes from when it enters a ring's first vertex: that of the last vertex
/// before the repeat that is off the ray at height `y`. `y` itself when there is none.
template <typename Coordinate>
Coordinate enteringY(const Region<Coordinate>& at, std::int64_t first, std::int64_t repeat,
                     Coordinate y) {
    if (at.y(first) != y) return y;  // only asked for where the ray meets the first vertex
    std::int64_t position = repeat - 1;
    while (position > first && at.y(position) == y) --position;
    return at.y(position);
}

/// Whether the ray from (x, y) towards smaller x crosses the edge that ends at position `i`. A
/// vertex on the ray belongs to the edge that leaves it, and counts if the boundary goes on to the
/// other side of the ray; `lastY` is where the boundary was before it.
template <typename Coordinate>
bool rayCrosses(Coordinate x, Coordinate y, const Region<Coordinate>& at, std::int64_t i,
                Coordinate& lastY) {
    const Coordinate fromX = at.x(i - 1), fromY = at.y(i - 1), toX = at.x(i), toY = at.y(i);
    if (fromY == toY) return false;
    if (toY == y) {
        lastY = fromY;
        return false;
    }
    if (fromY == y && x >= fromX) return (lastY - y) * (toY - y) < 0;
    return segmentsMeet(x, y, at.xmin - 10, y, fromX, fromY, toX, toY);
}

/// Where (x, y) lies by the even-odd rule. Nothing beyond position n is read, whatever `ends` says.
template <typename Coordinate>
Location locate(Coordinate x, Coordinate y, const Region<Coordinate>& region) {
    const std::int64_t last = region.n - 1;
    bool inside = false;
    std::int32_t ring = 0;
    for (std::int64_t first = 1; first < last; ++ring) {
        if (ring >= region.endCount) return Location::unknown;
        // An end that the walk never meets leaves all the rest to this ring.
        const std::int64_t end = region.ends[ring];
        const std::int64_t repeat = end > first && end < last ? end : last;
        Coordinate lastY = enteringY(region, first, repeat, y);
        for (std::int64_t i = first + 1; i <= repeat; ++i) {
            if (rayCrosses(x, y, region, i, lastY)) inside = !inside;
        }
        first = repeat + 2;
    }
    return inside ? Location::inside : Location::outside;
}

}  // namespace vantelgis
