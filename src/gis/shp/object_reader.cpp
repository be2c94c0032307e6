#include <algorithm>
#include <cstddef>

#include "gis/report.h"
#include "gis/rings.h"
#include "gis/shp/points.h"
#include "gis/shp/reader.h"
#include "gis/shp/shape_types.h"
#include "run/byte_order.h"
#include "run/unit_reading.h"

namespace vantelgis {

namespace {

constexpr std::string_view kLimited = ".shp polyline or region";
constexpr std::size_t kBoxBytes = 32;  // of an object; nothing here needs it

// What a failed read is called, while the fixed part of a record is read and while its coordinates
// are. A count or table that makes no sense is a failed read as well.
constexpr ReadFailures kReadingType{
    "ERROR 0425 - End of .shp file encountered whilst reading object type.",
    "ERROR 0424 - Reading .shp file object type."};
constexpr ReadFailures kReadingCoordinates{
    "ERROR 0430 - End of .shp file encountered whilst reading object coordinates.",
    "ERROR 0429 - Reading .shp file object coordinates."};

// The integer behind `passed` bytes.
template <std::size_t passed = 0>
std::int32_t readInteger(int unit, const ReadFailures& messages) {
    char bytes[passed + sizeof(std::int32_t)];
    gisRequireRead(readBytes(unit, bytes, sizeof bytes), messages);
    return fromLittleEndian<std::int32_t>(bytes + passed);
}

template <std::size_t passed = 0>
std::int32_t readCount(int unit, const ReadFailures& messages) {
    const std::int32_t count = readInteger<passed>(unit, messages);
    if (count < 0) gisStop(messages.failed);
    return count;
}

// Reads the table of the parts' first points, counted from 0, and puts the number of points behind
// it. The table has to start at 0 and must neither descend nor leave the points.
void readParts(shpL_& shp, std::int32_t nPoints, const ReadFailures& messages) {
    char bytes[sizeof(std::int32_t) * kMaxParts];
    const auto n = static_cast<std::size_t>(shp.nParts);
    gisRequireRead(readBytes(shp.shpUnit, bytes, n * sizeof(std::int32_t)), messages);
    std::vector<std::int32_t>& starts = shp.partStarts;
    starts.resize(n + 1);
    for (std::size_t i = 0; i < n; ++i)
        starts[i] = fromLittleEndian<std::int32_t>(bytes + i * sizeof(std::int32_t));
    starts[n] = nPoints;
    const bool sound = n == 0 || (starts[0] == 0 && std::ranges::is_sorted(starts));
    if (!sound) gisStop(messages.failed);
}

// The counts in a record say where the next one begins, not the length in its head: writers that
// get that length wrong are still read.
void passOverRest(shpL_& shp) {
    if (shp.countAhead) {
        shp.unread += readCount(shp.shpUnit, kReadingType) * kPointBytes;
        shp.countAhead = false;
    }
    gisRequireRead(skipBytes(shp.shpUnit, shp.unread), kReadingType);
    shp.unread = 0;
}

// The parts' table comes in with the head, so that what is left of the record is points alone.
void readPolylineHead(shpL_& shp, GisObject& object) {
    shp.nParts = object.nParts = readCount<kBoxBytes>(shp.shpUnit, kReadingType);
    if (shp.nParts >= kMaxParts) {
        gisStop("ERROR 0421 - Exceeded maximum number of parts in a .shp polyline.  Limit is ",
                kMaxParts);
    }
    if (shp.nParts > 0)
        object.kind = shp.nParts == 1 ? ObjectKind::polyline : ObjectKind::multiPolyline;
    const std::int32_t nPoints = readCount(shp.shpUnit, kReadingType);
    readParts(shp, nPoints, kReadingType);
    shp.unread = nPoints * kPointBytes;
}

// Polygons are seldom wanted: their table and points stay unread until they are. A negative count
// of rings is one of none.
void readPolygonHead(shpL_& shp, GisObject& object) {
    object.kind = ObjectKind::region;
    object.nParts = readInteger<kBoxBytes>(shp.shpUnit, kReadingType);
    if (object.nParts >= kMaxParts) {
        gisStop("ERROR 0422 - Exceeded maximum number of regions within a .shp region.  Limit is ",
                kMaxParts);
    }
    shp.nParts = std::max(object.nParts, 0);
    shp.unread = shp.nParts * std::int64_t{sizeof(std::int32_t)};
    shp.countAhead = true;
}

// Its points are given one by one, as often as they are asked for.
void readMultiPointHead(shpL_& shp, GisObject& object) {
    object.kind = ObjectKind::multiPoint;
    object.nParts = readCount<kBoxBytes>(shp.shpUnit, kReadingType);
    shp.unread = object.nParts * kPointBytes;
}

[[noreturn]] void stopShapeless() {
    gisStop("Should not be here [shpReadObject].  Please contact ", SUPPORT_ADDRESS, ".");
}

// Reads `count` points behind the first `first` nodes.
void readNodes(shpL_& shp, ObjectNodes& nodes, std::size_t first, std::size_t count) {
    const std::int64_t bytes = static_cast<std::int64_t>(count) * kPointBytes;
    if (bytes > shp.unread) stopShapeless();
    gisRequireRead(
        shpReadPoints(shp.shpUnit, nodes.x.data() + first, nodes.y.data() + first, count),
        kReadingCoordinates);
    shp.unread -= bytes;
}

void readOnePoint(shpL_& shp, ObjectNodes& nodes) {
    nodes.n = 1;
    readNodes(shp, nodes, 0, 1);
}

void readNextPart(shpL_& shp, ObjectNodes& nodes) {
    if (shp.nextPart >= shp.nParts) stopShapeless();
    const auto part = static_cast<std::size_t>(shp.nextPart++);
    nodes.n = shp.partStarts[part + 1] - shp.partStarts[part];
    gisMakeRoom(nodes, nodes.n, kLimited);
    readNodes(shp, nodes, 0, nodes.size());
}

void readRing(shpL_& shp, ObjectNodes& nodes, std::int32_t vertices) {
    const std::size_t first = nodes.size();
    const auto count = static_cast<std::size_t>(vertices);
    readNodes(shp, nodes, first, count);
    repeatSecondVertex(nodes, first, count);
    nodes.n += vertices + 1;
    nodes.ringEnds.push_back(nodes.n - 1);
}

void readPolygon(shpL_& shp, ObjectNodes& nodes) {
    const std::int32_t nPoints = readCount(shp.shpUnit, kReadingCoordinates);
    shp.countAhead = false;
    shp.unread = nPoints * kPointBytes;
    readParts(shp, nPoints, kReadingCoordinates);
    gisMakeRoom(nodes, std::int64_t{nPoints} + shp.nParts, kLimited);
    nodes.n = 0;
    nodes.ringEnds.clear();
    for (std::size_t ring = 0; ring < static_cast<std::size_t>(shp.nParts); ++ring)
        readRing(shp, nodes, shp.partStarts[ring + 1] - shp.partStarts[ring]);
}

}  // namespace

bool shpObjectType(shpL_& shp, GisObject& object) {
    passOverRest(shp);
    if (atEnd(shp.shpUnit)) return false;  // no byte where a record would begin
    shp.nParts = shp.nextPart = 0;
    constexpr std::size_t kHeadBytes = 8;  // record number and content length
    shp.recordType = readInteger<kHeadBytes>(shp.shpUnit, kReadingType);
    object.name = shapeName(shp.recordType);
    switch (shp.recordType) {
        case kNullShape: object.kind = ObjectKind::none; break;
        case kPoint:
            object.kind = ObjectKind::point;
            shp.unread = kPointBytes;
            break;
        case kPolyLine: readPolylineHead(shp, object); break;
        case kPolygon: readPolygonHead(shp, object); break;
        case kMultiPoint: readMultiPointHead(shp, object); break;
        default:
            gisStop("ERROR 0423 - Unsupported .shp object type ", object.name, " [", shp.recordType,
                    "]");
    }
    return true;
}

void shpReadObject(shpL_& shp, ObjectNodes& nodes) {
    switch (shp.recordType) {
        case kNullShape: break;
        case kPoint:
        case kMultiPoint: readOnePoint(shp, nodes); break;
        case kPolyLine: readNextPart(shp, nodes); break;
        case kPolygon: readPolygon(shp, nodes); break;
        default: stopShapeless();
    }
}

}  // namespace vantelgis
