#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vantelgis {

// What bounds a run, each in one place. Texts are in characters.

/// A path; what is longer is cut.
inline constexpr std::size_t kPathCapacity = 1000;

/// A line of any input: the rest of a longer one is dropped, and the file goes on behind its end.
inline constexpr std::size_t kLineCapacity = 100'000;

/// What counts of a line: of a layer, a record and what stands between the vertices of an archive;
/// and of a line of vertices.
inline constexpr std::size_t kShortLineCapacity = 1000;
inline constexpr std::size_t kVertexLineCapacity = 10'000;

/// How far two texts are compared loosely.
inline constexpr std::size_t kCompareCapacity = 1000;

/// Files that are open at a time, each on a unit of its own.
inline constexpr int kUnitCount = 1000;

/// Layers that are open at a time.
inline constexpr int kMaxLayers = 100;

/// Attribute fields that are kept of a .mif; more are passed over. A table may not have more.
inline constexpr int kMaxMifFields = 256;
inline constexpr int kMaxDbfFields = 128;

/// Polygons of a region; a shape has one part fewer at the most.
inline constexpr std::int32_t kMaxParts = 10'000;

/// Nodes of one object, or one part of it: of a layer that becomes 2D breaklines or results, and of
/// one that becomes 3D breaklines.
inline constexpr std::int32_t kMaxNodes2d = 1000;
inline constexpr std::int32_t kMaxNodes3d = 100'000;

/// Points that give their elevation to breaklines, and points with results.
inline constexpr std::size_t kMaxBreaklinePoints = 1'000'000;
inline constexpr std::size_t kMaxResultPoints = 1'000'000;

/// Vertices of one string of an archive. A closed polyline has one more.
inline constexpr std::int32_t kMaxVertices = 1'000'000;

/// The elevation that says that there is none, and how an archive spells it.
inline constexpr float kNullElevation = -99999.0F;
inline constexpr std::string_view kNullElevationText = "-99999";

}  // namespace vantelgis
