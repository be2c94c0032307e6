#pragma once

#include <cstdint>
#include <string_view>

namespace vantelgis {

/// The shape types that are read and written (ESRI Shapefile Technical Description).
enum ShapeType : std::int32_t {
    kNullShape = 0,
    kPoint = 1,
    kPolyLine = 3,
    kPolygon = 5,
    kMultiPoint = 8,
};

/// A shape type and its name.
struct ShapeName {
    std::int32_t type;
    std::string_view name;
};
inline constexpr ShapeName kShapeNames[] = {
    {kNullShape, "Null Shape"},  {kPoint, "Point"},  {kPolyLine, "Polyline"}, {kPolygon, "Polygon"},
    {kMultiPoint, "MultiPoint"}, {11, "PointZ"},     {13, "PolyLineZ"},       {15, "PolygonZ"},
    {18, "MultiPointZ"},         {21, "PointM"},     {23, "PolyLineM"},       {25, "PolygonM"},
    {28, "MultiPointM"},         {31, "MultiPatch"},
};

/// The name of a shape type, also of one that is not supported, as messages show it.
constexpr std::string_view shapeName(std::int32_t type) {
    for (const ShapeName& row : kShapeNames)
        if (row.type == type) return row.name;
    return "Unknown";
}

}  // namespace vantelgis
