#pragma once

#include <string_view>

#include "gpkg/geometry/shape.h"

namespace vantelgis::gpkg {

/// What a geometry blob turns out to be.
enum class BlobResult {
    taken,
    notABlob,      ///< doesn't begin as a GeoPackage's geometry
    extended,      ///< a geometry of a type of its own
    badHead,       ///< version, flags or rectangle can't be
    badByteOrder,  ///< neither little- nor big-endian
    badType,       ///< no type of geometry has this number
    wrongPart,     ///< a part is of another type than its whole can hold
    cutShort,      ///< counts say more than there are bytes
    tooLong,       ///< bytes are left behind the geometry
    badNumber,     ///< a coordinate is infinite, or x or y of a vertex not a number
    curve,         ///< curves, and surfaces bounded by them
    collection,    ///< a geometry collection, or a type that holds surfaces of other kinds
};

/// What is wrong, in words that go on behind "feature 7: ".
[[nodiscard]] std::string_view wordsOf(BlobResult result);

/// Reads a geometry blob (OGC 12-128r18, clause 2.1.3) into `shape`: a point is a part of one
/// vertex, each line and each ring of a polygon a part; rings end where they began. M values are
/// dropped; a vertex stored without z, or with one that isn't a number, has none. An empty
/// geometry, or part, gives no part. The rectangle in the head is passed over: it may lie. No count
/// in the blob is believed before the bytes for it are there. Anything but `taken` leaves `shape`
/// unfinished.
[[nodiscard]] BlobResult readBlob(std::string_view blob, Shape& shape);

}  // namespace vantelgis::gpkg
