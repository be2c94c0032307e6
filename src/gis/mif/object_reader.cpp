#include <algorithm>
#include <cstddef>

#include "gis/mif/reader.h"
#include "gis/report.h"
#include "gis/rings.h"
#include "run/unit_reading.h"
#include "text/characters.h"
#include "text/free_format.h"

namespace vantelgis {

namespace {

// What a line can begin with; the order of the rows is the order of the tests. A Center clause is
// no object.
struct Keyword {
    std::string_view word;
    ObjectKind kind;
};
constexpr Keyword kKeywords[] = {
    {"POINT", ObjectKind::point},
    {"PLINE MULTIPLE", ObjectKind::multiPolyline},
    {"PLINE", ObjectKind::polyline},
    {"LINE", ObjectKind::line},
    {"REGION", ObjectKind::region},
    {"MULTIPOINT", ObjectKind::multiPoint},
    {"NONE", ObjectKind::none},
    {"RECT", ObjectKind::rect},
    {"ROUNDRECT", ObjectKind::roundRect},
    {"TEXT", ObjectKind::text},
    {"ARC", ObjectKind::arc},
    {"ELLIPSE", ObjectKind::ellipse},
    {"COLLECTION", ObjectKind::unknown},
};
constexpr std::string_view kCentre = "CENTER";
constexpr std::string_view kLimited = "polyline or region";

// A failed read of a number: the text ran out, or there is something else than a number.
void requireNumber(Item item) {
    if (item == Item::end) gisStop("ERROR 0309 - Unexpected end of .mif file encountered.");
    if (item == Item::bad)
        gisStop("ERROR 0308 - Reading .mif file.  Check file format is not corrupted.");
}

std::int32_t takeCount(std::string_view text, std::int32_t countBefore) {
    FreeFormat list{text};
    requireNumber(takeInteger(list, countBefore));
    return countBefore;
}

std::int32_t takeNodeCount(std::string_view text, std::int32_t countBefore) {
    const std::int32_t count = takeCount(text, countBefore);
    if (count < 0) requireNumber(Item::bad);
    return count;
}

std::size_t firstTextColumn(std::string_view line) {
    std::size_t c = 0;
    while (c < line.size() && (line[c] == ' ' || line[c] == '\t')) ++c;
    return c;
}

// The count of a plain polyline is left to the read of its coordinates: an object that is passed
// over needs none.
void readCounts(std::string_view line, std::size_t c, GisObject& object) {
    const bool isRegion = object.kind == ObjectKind::region;
    if (!isRegion && object.kind != ObjectKind::multiPolyline &&
        object.kind != ObjectKind::multiPoint)
        return;
    object.nParts = takeCount(line.substr(c), object.nParts);
    if (isRegion && object.nParts > kMaxParts) {
        stopWith("", "ERROR 0304 - Exceeded maximum number of polygons in region below of 10000",
                 line);
    }
}

// The letters with which one of the words begins: bit 0 stands for A. Most lines that no object
// begins with begin with another one.
constexpr std::uint32_t letterBit(char letter) {
    return 1U << (toLower(letter) - 'a');
}
constexpr std::uint32_t kFirstLetters = [] {
    std::uint32_t letters = letterBit(kCentre.front());
    for (const Keyword& keyword : kKeywords) letters |= letterBit(keyword.word.front());
    return letters;
}();

bool beginsAWord(char c) {
    return isLetter(c) && (kFirstLetters & letterBit(c)) != 0;
}

// Looks for a keyword at column `c` of the line and moves `c` behind it. True if there is one, that
// of a region's centre included.
bool matchKeyword(std::string_view line, std::size_t& c, GisObject& object) {
    const std::string_view text = line.substr(c);
    const char first = toUpper(text.front());
    for (const Keyword& keyword : kKeywords) {
        if (keyword.word.front() != first || !beginsWith(text, keyword.word)) continue;
        if (keyword.kind == ObjectKind::unknown)
            gisStop(
                "ERROR 0303 - MIF \"Collection\" objects not supported.  Delete or disaggregate "
                "object.");
        object.kind = keyword.kind;
        object.name = keyword.word;
        c += keyword.word.size();
        readCounts(line, c, object);
        return true;
    }
    if (!beginsWith(text, kCentre)) return false;
    object.name = kCentre;
    c += kCentre.size();
    return true;
}

// Blanks at a line's end never count; tabs do.
std::string_view readScannedLine(int mifUnit) {
    std::string_view line;
    const ReadResult result = readLine(mifUnit, line);
    gisRequireRead(result, {"ERROR 0322 - End of .mif file encountered whilst reading object type.",
                            "ERROR 0321 - Reading .mif file object type."});
    return withoutTrailingBlanks(line.substr(0, Line::capacity()));
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
void readPoint(int mifUnit, std::string_view rest, ObjectNodes& nodes) {
    if (rest.empty()) {
        readNode(mifUnit, nodes, 0);
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

void readPart(int mifUnit, std::string_view countText, ObjectNodes& nodes) {
    nodes.n = takeNodeCount(countText, nodes.n);
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

// Reads on to the next line with an object keyword and gives what follows that. `centreLast`: the
// line read last is a Center clause, which is no object.
std::string_view scanForObject(int mifUnit, GisObject& object, bool& centreLast) {
    std::string_view rest;
    centreLast = false;
    while (object.kind == ObjectKind::unknown && !atEnd(mifUnit)) {
        const std::string_view line = readScannedLine(mifUnit);
        std::size_t c = firstTextColumn(line);
        const bool matched =
            c < line.size() && beginsAWord(line[c]) && matchKeyword(line, c, object);
        centreLast = matched && object.kind == ObjectKind::unknown;
        rest = line.substr(c);
    }
    return rest;
}

// A Center clause is seen only when it ends the file: the scan for it goes on to the next object.
void readCentre(int mifUnit, ObjectNodes& nodes) {
    GisObject next;
    const std::string_view rest = scanForObject(mifUnit, next, nodes.centreRead);
    if (!nodes.centreRead) {
        backspaceUnit(mifUnit);
        return;
    }
    FreeFormat list{rest};
    requireNumber(takeReal(list, nodes.xCentre));
    requireNumber(takeReal(list, nodes.yCentre));
}

void readRegion(int mifUnit, std::int32_t polygons, ObjectNodes& nodes) {
    constexpr int kFewestNodes = 5;
    nodes.n = 0;
    nodes.ringEnds.clear();
    for (std::int32_t i = 0; i < polygons; ++i) {
        readPolygon(mifUnit, nodes);
        nodes.ringEnds.push_back(nodes.n - 1);
    }
    if (polygons < 1 || nodes.n < kFewestNodes)
        gisStop("ERROR 0318 - Less than 5 points for Region object in mif file.");
    readCentre(mifUnit, nodes);
}

}  // namespace

bool gisMifObjectType(mifL_& layer, GisObject& object) {
    bool centreLast = false;
    const std::string_view rest = scanForObject(layer.mifUnit, object, centreLast);
    const bool found = object.kind != ObjectKind::unknown;
    layer.rest = found ? rest : std::string_view{};
    return found;
}

void gisMifReadObject(mifL_& layer, const GisObject& object, ObjectNodes& nodes) {
    const int unit = layer.mifUnit;
    switch (object.kind) {
        case ObjectKind::multiPoint: return readPoint(unit, {}, nodes);
        case ObjectKind::point: return readPoint(unit, layer.rest, nodes);
        case ObjectKind::line:
        case ObjectKind::rect:
        case ObjectKind::roundRect: return readTwoNodes(layer.rest, nodes);
        case ObjectKind::multiPolyline: return readPart(unit, readNextLine(unit), nodes);
        case ObjectKind::polyline: return readPart(unit, layer.rest, nodes);
        case ObjectKind::region: return readRegion(unit, object.nParts, nodes);
        case ObjectKind::arc:
        case ObjectKind::ellipse: nodes.n = 0; return;
        default: return;
    }
}

}  // namespace vantelgis
