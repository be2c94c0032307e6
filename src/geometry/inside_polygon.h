#pragma once

#include <cstdint>

namespace vantelgis {

/// True when (x, y) lies inside a region of one or more rings, by the even-odd rule: a ring inside
/// another one is a hole. Each ring of m vertices takes m + 2 positions of `px` and `py`: its
/// vertices, then the first two of them again. `n` counts all positions; `ends[k - 1]` is the
/// position, counted from 1, of the repeated first vertex of ring k, and the next ring starts two
/// positions behind it. `xmin` is the region's smallest x. Nothing beyond position n is read,
/// whatever `ends` says; when vertices are left behind the last ring, or `endCount` is not above 0,
/// a message is written and the run stops through EXITS.
extern "C" bool INSIDE_POLYGON(float x, float y, const float* px, const float* py, std::int32_t n,
                               float xmin, const std::int32_t* ends, std::int32_t endCount);
extern "C" bool INSIDE_POLYGON_8(double x, double y, const double* px, const double* py,
                                 std::int32_t n, double xmin, const std::int32_t* ends,
                                 std::int32_t endCount);

}  // namespace vantelgis
