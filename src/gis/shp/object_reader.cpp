#include <algorithm>
#include <cstddef>

#include "gis/report.h"
#include "gis/rings.h"
#include "gis/shp/points.h"
#include "gis/shp/reader.h"
#include "gis/shp/shape_types.h"
#include "run/unit_reading.h"

namespace vantelgis {

namespace {

constexpr std::int64_t kBoxBytes = 32;

// What a failed read is called, while the fixed part of a record is read and while its coordinates
// are. A count or table that makes no sense is a failed read as well.
struct ReadMessages {
    std::string_view end;
    std::string_view failed;
};
constexpr ReadMessages kReadingType{
    "ERROR 0425 - End of .shp file encountered whilst reading object type.",
    "ERROR 0424 - Reading .shp file object type."};
constexpr ReadMessages kReadingCoordinates{
    "ERROR 0430 - End of .shp file encountered whilst reading object coordinates.",
    "ERROR 0429 - Reading .shp file object coordinates."};

void settle(ReadResult result, const ReadMessages& messages) {
    if (result == ReadResult::end) gisStop(messages.end);
    if (result == ReadResult::failed) gisStop(messages.failed);
}

std::int32_t readInteger(int unit, const ReadMessages& messages) {
    std::int32_t value = 0;
    settle(readValue(unit, value), messages);
    return value;
}

std::int32_t readCount(int unit, const ReadMessages& messages) {
    const std::int32_t count = readInteger(unit, messages);
    if (count < 0) gisStop(messages.failed);
    return count;
}

// Reads the table of the parts' first points, counted from 0, and puts the number of points behind
// it. The table has to start at 0 and must neither descend nor leave the points.
void readParts(int unit, std::int32_t nParts, std::int32_t nPoints, GisObject& object,
               const ReadMessages& messages) {
    char bytes[sizeof(std::int32_t) * kMaxParts];
    const auto n = static_cast<std::size_t>(nParts);
    settle(readBytes(unit, bytes, n * sizeof(std::int32_t)), messages);
    for (std::size_t i = 0; i < n; ++i)
        object.ir[i] = fromLittleEndian<std::int32_t>(bytes + i * sizeof(std::int32_t));
    object.ir[n] = nPoints;
    const auto* const begin = object.ir.data();
    const bool sound = n == 0 || (begin[0] == 0 && std::is_sorted(begin, begin + n + 1));
    if (!sound) gisStop(messages.failed);
}

void passOverRest(shpL_& shp) {
    if (shp.countAhead) {
        shp.unread += readCount(shp.shpUnit, kReadingType) * kPointBytes;
        shp.countAhead = false;
    }
    settle(skipBytes(shp.shpUnit, shp.unread), kReadingType);
    shp.unread = 0;
}

std::int32_t readRecordHead(int unit) {
    char head[12];  // record number, content length, shape type
    settle(readBytes(unit, head, sizeof head), kReadingType);
    return fromLittleEndian<std::int32_t>(head + 8);
}

void readPolylineHead(shpL_& shp, GisObject& object) {
    settle(skipBytes(shp.shpUnit, kBoxBytes), kReadingType);
    object.nSections = readCount(shp.shpUnit, kReadingType);
    object.pline = object.nSections == 1;
    object.plineMultiple = object.nSections > 1;
    if (object.nSections >= kMaxParts) {
        gisStop("ERROR 0421 - Exceeded maximum number of parts in a .shp polyline.  Limit is ",
                kMaxParts);
    }
    const std::int32_t nPoints = readCount(shp.shpUnit, kReadingType);
    readParts(shp.shpUnit, object.nSections, nPoints, object, kReadingType);
    shp.unread = nPoints * kPointBytes;
}

void readPolygonHead(shpL_& shp, GisObject& object) {
    object.region = true;
    settle(skipBytes(shp.shpUnit, kBoxBytes), kReadingType);
    object.nr = readInteger(shp.shpUnit, kReadingType);
    if (object.nr >= kMaxParts) {
        gisStop("ERROR 0422 - Exceeded maximum number of regions within a .shp region.  Limit is ",
                kMaxParts);
    }
    shp.unread = std::max(object.nr, 0) * std::int64_t{sizeof(std::int32_t)};
    shp.countAhead = true;
}

void readMultiPointHead(shpL_& shp, GisObject& object) {
    object.multiPoint = true;
    settle(skipBytes(shp.shpUnit, kBoxBytes), kReadingType);
    object.nSections = readCount(shp.shpUnit, kReadingType);
    shp.unread = object.nSections * kPointBytes;
}

[[noreturn]] void stopShapeless() {
    gisStop("Should not be here [shpReadObject].  Please contact ", SUPPORT_ADDRESS, ".");
}

// Reads `count` points behind the first `first` nodes.
void readNodes(shpL_& shp, ObjectNodes& nodes, std::size_t first, std::size_t count) {
    const std::int64_t bytes = static_cast<std::int64_t>(count) * kPointBytes;
    if (bytes > shp.unread) stopShapeless();
    settle(shpReadPoints(shp.shpUnit, nodes.x.data() + first, nodes.y.data() + first, count),
           kReadingCoordinates);
    shp.unread -= bytes;
}

void checkNodes(std::int64_t requested, const ObjectNodes& nodes) {
    gisCheckNodes(requested, nodes.maxNodes, ".shp polyline or region");
}

void readOnePoint(shpL_& shp, ObjectNodes& nodes) {
    nodes.n = 1;
    readNodes(shp, nodes, 0, 1);
}

void readNextPart(shpL_& shp, GisObject& object, ObjectNodes& nodes) {
    if (object.nr >= object.nSections) stopShapeless();
    const auto part = static_cast<std::size_t>(object.nr++);
    nodes.n = object.ir[part + 1] - object.ir[part];
    checkNodes(nodes.n, nodes);
    readNodes(shp, nodes, 0, static_cast<std::size_t>(nodes.n));
}

void readRing(shpL_& shp, ObjectNodes& nodes, std::int32_t vertices) {
    const auto first = static_cast<std::size_t>(nodes.n);
    const auto count = static_cast<std::size_t>(vertices);
    readNodes(shp, nodes, first, count);
    repeatSecondVertex(nodes, first, count);
    nodes.n += vertices + 1;
}

void readPolygon(shpL_& shp, GisObject& object, ObjectNodes& nodes) {
    const std::int32_t nPoints = readCount(shp.shpUnit, kReadingCoordinates);
    shp.countAhead = false;
    shp.unread = nPoints * kPointBytes;
    const std::int32_t nParts = std::max(object.nr, 0);
    readParts(shp.shpUnit, nParts, nPoints, object, kReadingCoordinates);
    checkNodes(std::int64_t{nPoints} + object.nr, nodes);
    nodes.n = 0;
    for (std::size_t p = 0; p < static_cast<std::size_t>(nParts); ++p) {
        readRing(shp, nodes, object.ir[p + 1] - object.ir[p]);
        object.ir[p] = nodes.n - 1;
    }
}

}  // namespace

bool shpObjectType(shpL_& shp, GisObject& object) {
    passOverRest(shp);
    if (atEnd(shp.shpUnit)) return false;  // no byte where a record would begin
    object.nr = 0;
    shp.recordType = readRecordHead(shp.shpUnit);
    object.objName = shapeName(shp.recordType);
    switch (shp.recordType) {
        case kNullShape: object.none = true; break;
        case kPoint:
            object.point = true;
            shp.unread = kPointBytes;
            break;
        case kPolyLine: readPolylineHead(shp, object); break;
        case kPolygon: readPolygonHead(shp, object); break;
        case kMultiPoint: readMultiPointHead(shp, object); break;
        default:
            gisStop("ERROR 0423 - Unsupported .shp object type ", shapeName(shp.recordType), " [",
                    shp.recordType, "]");
    }
    return true;
}

void shpReadObject(shpL_& shp, GisObject& object, ObjectNodes& nodes) {
    switch (shp.recordType) {
        case kNullShape: break;
        case kPoint:
        case kMultiPoint: readOnePoint(shp, nodes); break;
        case kPolyLine: readNextPart(shp, object, nodes); break;
        case kPolygon: readPolygon(shp, object, nodes); break;
        default: stopShapeless();
    }
}

}  // namespace vantelgis
