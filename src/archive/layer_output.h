#pragma once

#include <cstddef>
#include <string_view>

#include "gis/layers.h"
#include "gis/operations.h"
#include "gis/records.h"

namespace vantelgis {

// What the conversions from the archive write to a layer alike.

/// Makes a layer with these fields, ready for its first object; gives its handle.
template <std::size_t N>
int openOutputLayer(std::string_view path, std::string_view shapeFamilies,
                    const FieldDefinition (&fields)[N]) {
    gisSetFields(fields);
    const int gisID = gisOpenLayer(path, shapeFamilies, "O ");
    gisWriteHeader(gisID);
    gisO_.clear();
    return gisID;
}

/// Columns of the elevation with which the attribute rows of points begin.
inline constexpr int kElevationColumns = 16;

/// Writes the first gisN vertices of gisX and gisY as a polyline with the attribute row
/// gisDataLine.
void writePolyline(int gisID);

/// Makes gisDataLine an attribute row: the elevation in its first columns and `rest`.
void composeElevationRow(float z, std::string_view rest);

/// Changes the elevation in that row and nothing else.
void changeElevation(float z);

}  // namespace vantelgis
