#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "gpkg/geometry/shape.h"

namespace vantelgis::gpkg {

// Geometries as a GeoPackage stores them: a head with the coordinate system and a rectangle, and
// behind it well-known binary (OGC 12-128r18, clause 2.1.3; ISO 13249-3 for the type numbers of
// geometries with Z). All in little-endian order. `blob` is written over; its room is kept, so that
// a blob used again allocates nothing.

/// How a layer stores its geometries.
struct BlobForm {
    std::int32_t srsId = 0;
    double nullZ = kNoElevation;  ///< stands where a vertex of a geometry with z has no elevation
};

/// A line of two or more vertices whose rectangle is `box`. With `withZ` it is a LineString Z.
void composeLine(std::string& blob, std::span<const Vertex> vertices, const Box& box, bool withZ,
                 const BlobForm& form);

/// A point. Its head has no rectangle, as a point is its own.
void composePoint(std::string& blob, const Vertex& vertex, bool withZ, const BlobForm& form);

}  // namespace vantelgis::gpkg
