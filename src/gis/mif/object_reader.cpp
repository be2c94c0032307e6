#include <cstddef>

#include "gis/mif/numbers.h"
#include "gis/mif/object_scan.h"
#include "gis/mif/reader.h"
#include "gis/report.h"
#include "gis/rings.h"
#include "run/unit_reading.h"
#include "text/free_format.h"

namespace vantelgis {

namespace {

constexpr std::string_view kLimited = "polyline or region";

std::int32_t takeNodeCount(std::string_view text, std::int32_t countBefore) {
    const std::int32_t count = takeCount(text, countBefore);
    if (count < 0) requireNumber(Item::bad);
    return count;
}

// The line of a count, one for each part.
std::string_view readNextLine(int mifUnit) {
    std::string_view line;
    const ReadResult result = readLine(mifUnit, line);
    if (result != ReadResult::ok) requireNumber(result == ReadResult::end ? Item::end : Item::bad);
    return line.substr(0, Line::capacity());
}

void readNode(int mifUnit, ObjectNodes& nodes, std::size_t i) {
    requireNumber(readPair(mifUnit, nodes.x[i], nodes.y[i], Line::capacity()));
}

void takeNode(FreeFormat& list, ObjectNodes& nodes, std::size_t i) {
    requireNumber(takeReal(list, nodes.x[i]));
    requireNumber(takeReal(list, nodes.y[i]));
}

// The second node repeats the point: a later polyline that leaves out a number of its second node
// finds it there.
void readPoint(const mifL_& layer, std::string_view rest, ObjectNodes& nodes) {
    if (layer.lineRead) {
        nodes.x[0] = layer.pointX;
        nodes.y[0] = layer.pointY;
    } else if (rest.empty()) {
        readNode(layer.mifUnit, nodes, 0);
    } else {
        FreeFormat list{rest};
        takeNode(list, nodes, 0);
    }
    nodes.x[1] = nodes.x[0];
    nodes.y[1] = nodes.y[0];
    nodes.n = 1;
}

void readTwoNodes(std::string_view rest, ObjectNodes& nodes) {
    FreeFormat list{rest};
    takeNode(list, nodes, 0);
    takeNode(list, nodes, 1);
    nodes.n = 2;
}

void readPart(int mifUnit, std::int32_t count, ObjectNodes& nodes) {
    nodes.n = count;
    gisMakeRoom(nodes, nodes.n, kLimited);
    for (std::size_t i = 0; i < static_cast<std::size_t>(nodes.n); ++i) readNode(mifUnit, nodes, i);
}

// Polygons close by themselves in a .mif, whether the first vertex is written again or not. With
// the second one behind them they can be walked past the closing edge without a test.
void readPolygon(int mifUnit, ObjectNodes& nodes) {
    const std::int32_t vertices = takeNodeCount(readNextLine(mifUnit), 0);
    const auto first = static_cast<std::size_t>(nodes.n);
    const std::int64_t n = std::int64_t{nodes.n} + vertices + 1;
    gisMakeRoom(nodes, n, kLimited);
    nodes.n = static_cast<std::int32_t>(n);
    for (std::size_t i = 0; i < static_cast<std::size_t>(vertices); ++i)
        readNode(mifUnit, nodes, first + i);
    repeatSecondVertex(nodes, first, static_cast<std::size_t>(vertices));
}

// A Center clause is seen only when it ends the file: the scan for it goes on to the next object.
void readCentre(mifL_& layer, ObjectNodes& nodes) {
    GisObject next;
    mifScanForObject(layer, next, nodes.centreRead);
    if (!nodes.centreRead) {
        backspaceUnit(layer.mifUnit);
        return;
    }
    FreeFormat list{layer.rest};
    requireNumber(takeReal(list, nodes.xCentre));
    requireNumber(takeReal(list, nodes.yCentre));
}

void readRegion(mifL_& layer, std::int32_t polygons, ObjectNodes& nodes) {
    constexpr int kFewestNodes = 5;
    nodes.n = 0;
    nodes.ringEnds.clear();
    for (std::int32_t i = 0; i < polygons; ++i) {
        readPolygon(layer.mifUnit, nodes);
        nodes.ringEnds.push_back(nodes.n - 1);
    }
    if (polygons < 1 || nodes.n < kFewestNodes)
        gisStop("ERROR 0318 - Less than 5 points for Region object in mif file.");
    readCentre(layer, nodes);
}

}  // namespace

void gisMifReadObject(mifL_& layer, const GisObject& object, ObjectNodes& nodes) {
    const int unit = layer.mifUnit;
    switch (object.kind) {
        case ObjectKind::multiPoint: return readPoint(layer, {}, nodes);
        case ObjectKind::point: return readPoint(layer, layer.rest, nodes);
        case ObjectKind::line:
        case ObjectKind::rect:
        case ObjectKind::roundRect: return readTwoNodes(layer.rest, nodes);
        case ObjectKind::multiPolyline:
            return readPart(unit, takeNodeCount(readNextLine(unit), nodes.n), nodes);
        case ObjectKind::polyline:
            return readPart(
                unit, layer.lineRead ? layer.nNodes : takeNodeCount(layer.rest, nodes.n), nodes);
        case ObjectKind::region: return readRegion(layer, object.nParts, nodes);
        case ObjectKind::arc:
        case ObjectKind::ellipse: nodes.n = 0; return;
        default: return;
    }
}

}  // namespace vantelgis
