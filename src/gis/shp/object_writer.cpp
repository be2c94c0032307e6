#include <algorithm>
#include <cstddef>
#include <limits>

#include "gis/report.h"
#include "gis/shp/points.h"
#include "gis/shp/shape_types.h"
#include "gis/shp/writer.h"
#include "run/unit_writing.h"

namespace vantelgis {

namespace {

struct Box {
    double xMin = std::numeric_limits<double>::max();
    double yMin = std::numeric_limits<double>::max();
    double xMax = std::numeric_limits<double>::lowest();
    double yMax = std::numeric_limits<double>::lowest();
};

Box boxOf(const OutputNodes& nodes) {
    const auto x = nodes.x();
    const auto y = nodes.y();
    Box box;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        box.xMin = std::min(box.xMin, x[i]);
        box.yMin = std::min(box.yMin, y[i]);
        box.xMax = std::max(box.xMax, x[i]);
        box.yMax = std::max(box.yMax, y[i]);
    }
    return box;
}

void widen(shpL_& shp, const Box& box) {
    shp.xMin = std::min(shp.xMin, box.xMin);
    shp.yMin = std::min(shp.yMin, box.yMin);
    shp.xMax = std::max(shp.xMax, box.xMax);
    shp.yMax = std::max(shp.yMax, box.yMax);
}

[[noreturn]] void stopWriting() {
    gisStop(kShpObjectFailure);
}

constexpr std::size_t kHeadBytes = 12;  // record number, content length, shape type
constexpr std::size_t kIndexBytes = 8;

// A record of the .shx: where the object's record begins in the .shp and how long its content is,
// both in 16-bit words. The content doesn't count the 8 bytes of the record's own head.
void putIndex(const shpL_& shp, std::int32_t content) {
    OpenFile& file = makeRoom(shp.shxUnitBE, kIndexBytes);
    char* const out = placeBig(file.buffer + file.end, shp.offset);
    placeBig(out, content);
    file.end += kIndexBytes;
    if (file.failed) stopWriting();
}

// Puts the object's record into the .shx, counts it, and places its head in the .shp at `out`.
// Lengths count in 16-bit words.
char* startRecord(shpL_& shp, ShapeType type, std::int64_t contentWords, char* out) {
    constexpr std::int64_t kWordsBeforeContent = 4;
    const std::int64_t end = std::int64_t{shp.offset} + kWordsBeforeContent + contentWords;
    if (end > std::numeric_limits<std::int32_t>::max()) stopWriting();
    const auto content = static_cast<std::int32_t>(contentWords);
    putIndex(shp, content);
    shp.recordType = type;
    shp.offset = static_cast<std::int32_t>(end);
    out = placeBig(out, ++shp.nObjects);
    out = placeBig(out, content);
    return placeLittle(out, shp.recordType);
}

void startRecord(shpL_& shp, ShapeType type, std::int64_t contentWords) {
    char* const out = reserve(shp.shpUnit, kHeadBytes);
    commit(shp.shpUnit, startRecord(shp, type, contentWords, out));
}

void putBox(int unit, const Box& box) {
    char* out = reserve(unit, sizeof box);
    out = placeLittle(out, box.xMin);
    out = placeLittle(out, box.yMin);
    out = placeLittle(out, box.xMax);
    commit(unit, placeLittle(out, box.yMax));
}

// The file counts the nodes at which the parts begin from 0.
void putPartStarts(int unit, std::span<const std::int32_t> starts) {
    for (const std::int32_t start : starts) putValue(unit, std::max(start, 1) - 1);
}

void putNodes(int unit, const OutputNodes& nodes) {
    shpWritePoints(unit, nodes.x().data(), nodes.y().data(), nodes.size());
}

// Content lengths: 20 words for type, box and count, 8 for each point.
void writePointSet(shpL_& shp, const OutputNodes& nodes) {
    const auto n = static_cast<std::int32_t>(nodes.size());
    startRecord(shp, kMultiPoint, std::int64_t{8} * n + 20);
    const Box box = boxOf(nodes);
    putBox(shp.shpUnit, box);
    putValue(shp.shpUnit, n);
    putNodes(shp.shpUnit, nodes);
    widen(shp, box);
}

// 22 words for type, box and both counts, 2 for each part and 8 for each point.
void writeParts(shpL_& shp, ShapeType type, const GisObject& object, const OutputNodes& nodes) {
    constexpr std::int32_t kOnePart[] = {1};
    const auto starts = object.partStarts.empty() ? std::span(kOnePart) : object.partStarts;
    const auto n = static_cast<std::int32_t>(nodes.size());
    const auto nParts = static_cast<std::int32_t>(starts.size());
    startRecord(shp, type, std::int64_t{8} * n + std::int64_t{2} * nParts + 22);
    const Box box = boxOf(nodes);
    putBox(shp.shpUnit, box);
    putValue(shp.shpUnit, nParts);
    putValue(shp.shpUnit, n);
    putPartStarts(shp.shpUnit, starts);
    putNodes(shp.shpUnit, nodes);
    widen(shp, box);
}

}  // namespace

void shpWriteObject(const GisObject& object, const OutputNodes& nodes, shpL_& shp) {
    switch (object.kind) {
        case ObjectKind::point:
        case ObjectKind::text: return shpWritePoint(nodes.x()[0], nodes.y()[0], shp);
        case ObjectKind::multiPoint: writePointSet(shp, nodes); break;
        case ObjectKind::line:
        case ObjectKind::polyline:
        case ObjectKind::multiPolyline: writeParts(shp, kPolyLine, object, nodes); break;
        case ObjectKind::region: writeParts(shp, kPolygon, object, nodes); break;
        case ObjectKind::none: startRecord(shp, kNullShape, 2); break;
        default:
            gisStop(
                "ERROR 0350 - Trying to write a SHP object that is not yet supported.  Please "
                "contact ",
                SUPPORT_ADDRESS, ".");
    }
    if (writeFailed(shp.shpUnit)) stopWriting();
}

void shpWritePoint(double x, double y, shpL_& shp) {
    OpenFile& file = makeRoom(shp.shpUnit, kHeadBytes + kPointBytes);
    // The type and two coordinates: 10 words, and no box.
    char* out = startRecord(shp, kPoint, 10, file.buffer + file.end);
    out = placeLittle(out, x);
    out = placeLittle(out, y);
    file.end = static_cast<std::size_t>(out - file.buffer);
    widen(shp, {x, y, x, y});
    if (file.failed) stopWriting();
}

}  // namespace vantelgis
