#pragma once

#include <cstddef>
#include <string_view>

namespace vantelgis {

// What bounds a run, each in one place. Texts are in characters.

/// A path; what is longer is cut.
inline constexpr std::size_t kPathCapacity = 1000;

/// A line of any input: the rest of a longer one is dropped, and the file goes on behind its end.
inline constexpr std::size_t kLineCapacity = 100'000;

/// How far two texts are compared loosely.
inline constexpr std::size_t kCompareCapacity = 1000;

/// Files that are open at a time, each on a unit of its own.
inline constexpr int kUnitCount = 1000;

/// The elevation that says that there is none, and how an archive spells it.
inline constexpr float kNullElevation = -99999.0F;
inline constexpr std::string_view kNullElevationText = "-99999";

}  // namespace vantelgis
