#include <algorithm>
#include <cstddef>
#include <limits>

#include "gis/report.h"
#include "gis/shp/bytes.h"
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

Box boxOfNodes(std::size_t n) {
    Box box;
    for (std::size_t i = 0; i < n; ++i) {
        box.xMin = std::min(box.xMin, gisX[i]);
        box.yMin = std::min(box.yMin, gisY[i]);
        box.xMax = std::max(box.xMax, gisX[i]);
        box.yMax = std::max(box.yMax, gisY[i]);
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
    gisStop("ERROR 0439 - Writing .shp file object coordinates.");
}

constexpr std::size_t kHeadBytes = 12;
constexpr std::size_t kIndexBytes = 8;

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
    shp.fileLength = shp.offset;
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

// The nodes at which the parts begin; the file counts them from 0.
void putParts(int unit, const GisObject& object) {
    const auto nr = static_cast<std::size_t>(object.nr);
    char* out = reserve(unit, nr * sizeof object.ir[0]);
    for (std::size_t i = 0; i < nr; ++i) out = placeLittle(out, object.ir[i] - 1);
    commit(unit, out);
}

void putNodes(int unit, std::size_t n) {
    shpWritePoints(unit, gisX.data(), gisY.data(), n);
}

void writePointSet(shpL_& shp) {
    startRecord(shp, kMultiPoint, std::int64_t{8} * gisN + 20);
    const auto n = static_cast<std::size_t>(std::max(gisN, 0));
    const Box box = boxOfNodes(n);
    putBox(shp.shpUnit, box);
    putValue(shp.shpUnit, gisN);
    putNodes(shp.shpUnit, n);
    widen(shp, box);
}

void writeParts(shpL_& shp, ShapeType type, const GisObject& object) {
    startRecord(shp, type, std::int64_t{8} * gisN + std::int64_t{2} * object.nr + 22);
    const auto n = static_cast<std::size_t>(std::max(gisN, 0));
    const Box box = boxOfNodes(n);
    putBox(shp.shpUnit, box);
    putValue(shp.shpUnit, object.nr);
    putValue(shp.shpUnit, gisN);
    putParts(shp.shpUnit, object);
    putNodes(shp.shpUnit, n);
    widen(shp, box);
}

}  // namespace

void shpWriteObject(const GisObject& object, shpL_& shp) {
    if (object.point) {
        shpWritePointAtNode(1, shp);
        return;
    }
    if (object.multiPoint) {
        writePointSet(shp);
    } else if (object.line || object.pline || object.plineMultiple) {
        writeParts(shp, kPolyLine, object);
    } else if (object.region) {
        writeParts(shp, kPolygon, object);
    } else if (object.none) {
        startRecord(shp, kNullShape, 2);
    } else {
        gisStop(
            "ERROR 0350 - Trying to write a SHP object that is not yet supported.  Please contact ",
            SUPPORT_ADDRESS, ".");
    }
    if (writeFailed(shp.shpUnit)) stopWriting();
}

void shpWritePointAtNode(std::int32_t node, shpL_& shp) {
    const double x = gisX[static_cast<std::size_t>(node) - 1];
    const double y = gisY[static_cast<std::size_t>(node) - 1];
    OpenFile& file = makeRoom(shp.shpUnit, kHeadBytes + kPointBytes);
    char* out = startRecord(shp, kPoint, 10, file.buffer + file.end);
    out = placeLittle(out, x);
    out = placeLittle(out, y);
    file.end = static_cast<std::size_t>(out - file.buffer);
    widen(shp, {x, y, x, y});
    if (file.failed) stopWriting();
}

}  // namespace vantelgis
