#pragma once

#include <cstddef>
#include <string_view>

#include "archive/head.h"
#include "archive/scanner.h"
#include "archive/vertices.h"
#include "gis/fields.h"
#include "gis/object.h"
#include "text/constant_field.h"
#include "text/joined.h"

namespace vantelgis {

// What the conversions from an archive to layers do alike.

/// The archive being read, the string in hand, and how many there were.
struct ArchiveStrings {
    Archive archive;
    D12Object object;
    ArchiveVertices vertices;
    OutputNodes nodes;  ///< the vertices, to be written
    std::int32_t converted = 0;
    std::int32_t ignored = 0;

    /// Reads the vertices of the string in hand; false when the file ends before them.
    bool readVertices();
};

/// Writes the vertices as a polyline with its row.
void writePolyline(ArchiveStrings& run, int layer, const NumberRow& row);

/// An attribute row: an elevation and `rest`, which is the same for all points of a string.
class ElevationRow {
  public:
    ElevationRow(float z, std::string_view rest) : row_(ElevationField(z), rest) {}

    void setElevation(float z) { row_.overwrite(0, ElevationField(z)); }
    /// Changes a character of the rest, counted from 0.
    void setInRest(std::size_t i, char c) { row_.overwrite(kElevationWidth + i, {&c, 1}); }

    operator NumberRow() const { return {row_, kElevationWidth}; }

  private:
    static constexpr int kElevationWidth = 16;
    struct ElevationField {
        explicit ElevationField(float z) {
            fixedField<kElevationWidth, 3>(text, static_cast<double>(z));
        }
        operator std::string_view() const { return {text, sizeof text}; }
        char text[kElevationWidth];
    };

    Joined<Line::capacity()> row_;
};

}  // namespace vantelgis
