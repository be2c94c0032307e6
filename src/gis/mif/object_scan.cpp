#include "gis/mif/object_scan.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "gis/mif/numbers.h"
#include "gis/mif/reader.h"
#include "gis/report.h"
#include "run/plain_line.h"
#include "run/stop.h"
#include "run/unit_reading.h"
#include "text/characters.h"
#include "text/limits.h"

namespace vantelgis {

namespace {

// What a line can begin with; the order of the rows is the order of the tests. A Center clause is
// no object.
struct Keyword {
    std::string_view word;
    ObjectKind kind;
};
constexpr std::string_view kPoint = "POINT";
constexpr std::string_view kPolyline = "PLINE";
constexpr Keyword kKeywords[] = {
    {kPoint, ObjectKind::point},
    {"PLINE MULTIPLE", ObjectKind::multiPolyline},
    {kPolyline, ObjectKind::polyline},
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
        stopWith("",
                 MessageLine("ERROR 0304 - Exceeded maximum number of polygons in region below of ",
                             kMaxParts),
                 line);
    }
}

constexpr std::size_t placeOf(char letter) {
    return static_cast<std::size_t>(toLower(letter) - 'a');
}
constexpr std::uint32_t letterBit(char letter) {
    return 1U << placeOf(letter);
}

// For each letter with which one of the words begins the letters that come second: bit 0 stands for
// A. Few other lines begin so.
constexpr std::array<std::uint32_t, 26> kSecondLetters = [] {
    std::array<std::uint32_t, 26> letters{};
    const auto add = [&](std::string_view word) {
        letters[placeOf(word[0])] |= letterBit(word[1]);
    };
    for (const Keyword& keyword : kKeywords) add(keyword.word);
    add(kCentre);
    return letters;
}();

bool beginsAWord(const char* text) {
    return isLetter(text[1]) && (kSecondLetters[placeOf(text[0])] & letterBit(text[1])) != 0;
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

// Takes the next line if it is of a common kind: that of a point or polyline with nothing but plain
// numbers, which are read with it, or one that begins as no keyword does, such as that of a pen.
// False leaves a line of any other kind, or one that the buffer doesn't hold, to the scan.
bool takePlainLine(mifL_& layer, GisObject& object) {
    PlainLine line(layer.mifUnit, Line::capacity());
    const char* const text = line.text();
    if (!isLetter(text[0])) return false;
    if (!beginsAWord(text)) return line.passOver();
    const bool isPoint = line.word(kPoint);
    if (!isPoint && !line.word(kPolyline)) return false;
    layer.lineRead = (isPoint ? line.number(layer.pointX) && line.number(layer.pointY)
                              : line.count(layer.nNodes)) &&
                     line.end();
    if (!layer.lineRead) return false;
    object.kind = isPoint ? ObjectKind::point : ObjectKind::polyline;
    object.name = isPoint ? kPoint : kPolyline;
    return true;
}

}  // namespace

void mifScanForObject(mifL_& layer, GisObject& object, bool& centreLast) {
    centreLast = layer.lineRead = false;
    while (object.kind == ObjectKind::unknown) {
        const bool taken = takePlainLine(layer, object);
        if (!taken && atEnd(layer.mifUnit)) return;
        centreLast = false;
        if (taken) continue;
        const std::string_view line = readScannedLine(layer.mifUnit);
        std::size_t c = firstTextColumn(line);
        if (c < line.size() && matchKeyword(line, c, object))
            centreLast = object.kind == ObjectKind::unknown;
        layer.rest = line.substr(c);
    }
}

bool gisMifObjectType(mifL_& layer, GisObject& object) {
    bool centreLast = false;
    mifScanForObject(layer, object, centreLast);
    const bool found = object.kind != ObjectKind::unknown;
    if (!found) layer.rest = {};
    return found;
}

}  // namespace vantelgis
