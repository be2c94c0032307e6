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

// What a line can begin with; the order of the rows is the order of the tests.
struct Keyword {
    std::string_view word;
    bool GisObject::*flag;
};
constexpr Keyword kKeywords[] = {
    {"POINT", &GisObject::point},
    {"PLINE MULTIPLE", &GisObject::plineMultiple},
    {"PLINE", &GisObject::pline},
    {"LINE", &GisObject::line},
    {"REGION", &GisObject::region},
    {"MULTIPOINT", &GisObject::multiPoint},
    {"NONE", &GisObject::none},
    {"RECT", &GisObject::rect},
    {"ROUNDRECT", &GisObject::roundRect},
    {"TEXT", &GisObject::text},
    {"ARC", &GisObject::arc},
    {"ELLIPSE", &GisObject::ellipse},
    {"COLLECTION", nullptr},
};

// A failed read of a number: the text ran out, or there is something else than a number.
void settle(Item item) {
    if (item == Item::end) gisStop("ERROR 0309 - Unexpected end of .mif file encountered.");
    if (item == Item::bad)
        gisStop("ERROR 0308 - Reading .mif file.  Check file format is not corrupted.");
}

std::int32_t takeCount(std::string_view text, std::int32_t countBefore) {
    FreeFormat list{text};
    settle(takeInteger(list, countBefore));
    return countBefore;
}

std::int32_t takeNodeCount(std::string_view text, std::int32_t countBefore) {
    const std::int32_t count = takeCount(text, countBefore);
    if (count < 0) settle(Item::bad);
    return count;
}

std::size_t firstTextColumn(std::string_view line) {
    std::size_t c = 0;
    while (c < line.size() && (line[c] == ' ' || line[c] == '\t')) ++c;
    return c;
}

void readCounts(std::string_view line, std::size_t c, GisObject& object) {
    const std::string_view behind = line.substr(c);
    if (object.plineMultiple || object.multiPoint)
        object.nSections = takeCount(behind, object.nSections);
    if (object.region) object.nr = takeCount(behind, object.nr);
    if (object.nr <= kMaxParts) return;
    gisSetMessage("ERROR 0304 - Exceeded maximum number of polygons in region below of 10000",
                  line);
    gisReport(1);
    EXITS();
}

// Looks for a keyword at column `c` of the line and moves `c` behind it.
void matchKeyword(std::string_view line, std::size_t& c, GisObject& object) {
    const std::string_view text = line.substr(c);
    object.center = beginsWith(text, "CENTER");
    for (const Keyword& keyword : kKeywords) {
        if (!beginsWith(text, keyword.word)) continue;
        if (keyword.flag == nullptr)
            gisStop(
                "ERROR 0303 - MIF \"Collection\" objects not supported.  Delete or disaggregate "
                "object.");
        object.*keyword.flag = true;
        object.objName = keyword.word;
        c += keyword.word.size();
        readCounts(line, c, object);
        return;
    }
    if (object.center) {
        object.objName = "CENTER";
        c += object.objName.size();
    }
}

std::string_view readScannedLine(int mifUnit) {
    std::string_view line;
    const ReadResult result = readLine(mifUnit, line);
    if (result == ReadResult::end)
        gisStop("ERROR 0322 - End of .mif file encountered whilst reading object type.");
    if (result == ReadResult::failed) gisStop("ERROR 0321 - Reading .mif file object type.");
    return withoutTrailingBlanks(line.substr(0, Line::capacity()));
}

void readNextLine(int mifUnit, TextRef line) {
    std::string_view text;
    const ReadResult result = readLine(mifUnit, text);
    if (result != ReadResult::ok) settle(result == ReadResult::end ? Item::end : Item::bad);
    line.assign(text);
}

void readNode(int mifUnit, ObjectNodes& nodes, std::size_t i) {
    settle(readPair(mifUnit, nodes.x[i], nodes.y[i], Line::capacity()));
}

void takeNode(FreeFormat& list, ObjectNodes& nodes, std::size_t i) {
    settle(takeReal(list, nodes.x[i]));
    settle(takeReal(list, nodes.y[i]));
}

void readPoint(int mifUnit, std::string_view rest, ObjectNodes& nodes) {
    if (rest.empty()) {
        readNode(mifUnit, nodes, 0);
    } else {
        FreeFormat list{rest};
        takeNode(list, nodes, 0);
    }
    nodes.n = 1;
}

void readTwoNodes(std::string_view rest, ObjectNodes& nodes) {
    FreeFormat list{rest};
    takeNode(list, nodes, 0);
    takeNode(list, nodes, 1);
    nodes.n = 2;
}

void readSection(int mifUnit, std::string_view countText, ObjectNodes& nodes) {
    nodes.n = takeNodeCount(countText, nodes.n);
    gisMifCheckNodes(nodes.n, nodes.maxNodes);
    for (std::size_t i = 0; i < static_cast<std::size_t>(nodes.n); ++i) readNode(mifUnit, nodes, i);
}

void readPolygon(int mifUnit, TextRef rest, ObjectNodes& nodes) {
    readNextLine(mifUnit, rest);
    const std::int32_t vertices = takeNodeCount(rest.view(), 0);
    const auto first = static_cast<std::size_t>(nodes.n);
    const std::int64_t n = std::int64_t{nodes.n} + vertices + 1;
    gisMifCheckNodes(n, nodes.maxNodes);
    nodes.n = static_cast<std::int32_t>(n);
    for (std::size_t i = 0; i < static_cast<std::size_t>(vertices); ++i)
        readNode(mifUnit, nodes, first + i);
    repeatSecondVertex(nodes, first, static_cast<std::size_t>(vertices));
}

// A Center clause is seen only when it ends the file: the scan for it goes on to the next object.
void readCentre(int mifUnit, TextRef rest, ObjectNodes& nodes, bool& noCentreSeen) {
    static GisObject scratch;
    scratch.clear();
    gisMifObjectType(mifUnit, rest, rest, scratch);
    if (!scratch.center) {
        backspaceUnit(mifUnit);
        return;
    }
    FreeFormat list{rest.view()};
    settle(takeReal(list, nodes.xc));
    settle(takeReal(list, nodes.yc));
    noCentreSeen = false;
}

void readRegion(int mifUnit, TextRef rest, GisObject& object, ObjectNodes& nodes,
                bool& noCentreSeen) {
    constexpr int kFewestNodes = 5;
    nodes.n = 0;
    for (std::size_t i = 0; i < static_cast<std::size_t>(std::max(object.nr, 0)); ++i) {
        readPolygon(mifUnit, rest, nodes);
        object.ir[i] = nodes.n - 1;
    }
    if (object.nr < 1 || nodes.n < kFewestNodes)
        gisStop("ERROR 0318 - Less than 5 points for Region object in mif file.");
    readCentre(mifUnit, rest, nodes, noCentreSeen);
}

}  // namespace

bool gisMifObjectType(int mifUnit, TextRef line, TextRef rest, GisObject& object) {
    line.clear();
    while (!object.found() && !atEnd(mifUnit)) {
        const std::string_view text = readScannedLine(mifUnit);
        std::size_t c = firstTextColumn(text);
        object.center = false;
        if (c < text.size() && isLetter(text[c])) matchKeyword(text, c, object);
        if (!object.found() && !object.center) continue;
        line.assign(text);
        rest.assign(text.substr(c));
    }
    return object.found();
}

void gisMifReadObject(int mifUnit, TextRef rest, GisObject& object, ObjectNodes& nodes,
                      bool& noCentreSeen) {
    if (object.multiPoint) {
        readPoint(mifUnit, {}, nodes);
    } else if (object.point) {
        readPoint(mifUnit, rest.view(), nodes);
    } else if (object.line || object.rect || object.roundRect) {
        readTwoNodes(rest.view(), nodes);
    } else if (object.arc || object.ellipse) {
        nodes.n = 0;
    } else if (object.pline) {
        readSection(mifUnit, rest.view(), nodes);
    } else if (object.plineMultiple) {
        readNextLine(mifUnit, rest);
        readSection(mifUnit, rest.view(), nodes);
    } else if (object.region) {
        readRegion(mifUnit, rest, object, nodes, noCentreSeen);
    }
}

void gisMifCheckNodes(std::int64_t n, std::int32_t maxNodes) {
    gisCheckNodes(n, maxNodes, "polyline or region");
}

}  // namespace vantelgis
