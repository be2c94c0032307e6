#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "gpkg/geometry/shape.h"
#include "gpkg/package/database.h"
#include "gpkg/wkt.h"

namespace vantelgis::gpkg {

// The tables of a GeoPackage (OGC 12-128r18, version 1.3) that this program makes.

inline constexpr std::string_view kStringsLayer = "strings";
inline constexpr std::string_view kPointsLayer = "points";
inline constexpr std::string_view kVerticesLayer = "vertices";
inline constexpr std::string_view kIgnoredTable = "ignored";

/// Numbers of what stands for a coordinate system that nobody knows.
inline constexpr std::int32_t kUndefinedCartesian = -1;
inline constexpr std::int32_t kUndefinedGeographic = 0;

/// The spatial index of a layer's geometries, a virtual table.
[[nodiscard]] std::string indexTable(std::string_view layer);

/// Makes an empty database a GeoPackage: its marks in the file's head and the tables that every
/// package has.
void createPackage(Database& database);

[[nodiscard]] bool hasTable(Database& database, std::string_view table);

/// The number under which the package knows the coordinate system; an undefined one is
/// kUndefinedCartesian. One that isn't there yet is added, under its EPSG number when it has one.
std::int32_t addCoordinateSystem(Database& database, const CoordinateSystem& system);

/// Makes those of the layers `strings`, `points`, `ignored` and (when wanted) `vertices` that
/// aren't there yet, with their spatial indexes.
void createLayers(Database& database, std::int32_t srsId, bool withVertices);

/// The triggers that keep the spatial index of a layer in step call functions that only GIS
/// programs have, so they go before rows are changed here and come back behind that.
void dropIndexTriggers(Database& database, std::string_view layer);
void createIndexTriggers(Database& database, std::string_view layer);

/// Enters the date of the change, and the rectangle around all geometries of a layer.
void enterExtent(Database& database, std::string_view layer, const Box& extent);

}  // namespace vantelgis::gpkg
