#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vantelgis::gpkg {

// The numbers of a geometry blob that its reader and its writer share.

// The head: magic, version, flags, the number of the coordinate system, a rectangle.
inline constexpr std::string_view kBlobMagic = "GP";
inline constexpr std::uint8_t kBlobVersion = 0;
inline constexpr std::size_t kBlobHeadSize = 8;
inline constexpr unsigned kLittleEndianHead = 0x01;
inline constexpr unsigned kRectangleXy = 1U
                                         << 1U;  // of the three bits that say which bounds follow
inline constexpr unsigned kExtendedBlob = 0x20;  // what follows isn't well-known binary

inline constexpr std::uint8_t kBigEndianWkb = 0;
inline constexpr std::uint8_t kLittleEndianWkb = 1;

/// Type numbers without their dimensions; those behind geometryCollection are curves and surfaces.
enum class WkbType : std::uint32_t {
    point = 1,
    lineString = 2,
    polygon = 3,
    multiPoint = 4,
    multiLineString = 5,
    multiPolygon = 6,
    geometryCollection = 7,
    circularString = 8,
    compoundCurve = 9,
    curvePolygon = 10,
    multiCurve = 11,
    multiSurface = 12,
    curve = 13,
    surface = 14,
};
inline constexpr std::uint32_t kZOffset = 1000;  // M is 2000, both are 3000

}  // namespace vantelgis::gpkg
