#include "gis/mif/writer.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <vector>

#include "gis/report.h"
#include "run/unit_writing.h"

namespace vantelgis {

namespace {

constexpr int kFieldWidth = 16;
constexpr int kCoordinateDecimals = 6;
constexpr int kTextBoxDecimals = 3;
constexpr std::size_t kNodeWidth = 2 * kFieldWidth;
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kPoint = "Point ";

// The coordinates of the polyline written last as they stand in the file, for the points at its
// nodes: each number is formatted once.
std::vector<char> nodeTexts;

void checkWritten(int mifUnit) {
    if (writeFailed(mifUnit)) gisStop("ERROR 0439 - Writing .mif file object coordinates.");
}

char* copyText(char* out, std::string_view text) {
    std::memcpy(out, text.data(), text.size());
    return out + text.size();
}

char* nodeFields(char* out, std::size_t i, int decimals) {
    out = fixedField(out, gisX[i], kFieldWidth, decimals);
    return fixedField(out, gisY[i], kFieldWidth, decimals);
}

void putNode(int unit, std::size_t i, int decimals = kCoordinateDecimals) {
    commit(unit, nodeFields(reserve(unit, kNodeWidth), i, decimals));
}

// A line of its own for each of `count` nodes from index `first` on.
void putNodes(int unit, std::int64_t first, std::int64_t count) {
    const auto begin = static_cast<std::size_t>(first);
    for (std::size_t i = begin; i < begin + static_cast<std::size_t>(count); ++i) {
        putNode(unit, i);
        endLine(unit);
    }
}

void putCount(int unit, std::string_view word, std::int64_t count) {
    put(unit, word);
    putInteger(unit, count);
    endLine(unit);
}

void reserveNodeTexts(std::size_t size) {
    if (nodeTexts.size() < size) nodeTexts.resize(std::max(size, 2 * nodeTexts.size()));
}

// Many lines go into the unit's buffer at a time.
void writePolyline(int unit) {
    constexpr std::size_t kLineWidth = kNodeWidth + kLineEnd.size();
    constexpr std::size_t kLinesAtOnce = kLargestReserve / kLineWidth;
    putCount(unit, "Pline ", gisN);
    const auto nodes = static_cast<std::size_t>(std::max(gisN, 0));
    reserveNodeTexts(nodes * kNodeWidth);
    for (std::size_t i = 0; i < nodes;) {
        const std::size_t end = std::min(nodes, i + kLinesAtOnce);
        char* out = reserve(unit, (end - i) * kLineWidth);
        for (; i < end; ++i) {
            char* const text = nodeTexts.data() + i * kNodeWidth;
            nodeFields(text, i, kCoordinateDecimals);
            out = copyText(copyText(out, {text, kNodeWidth}), kLineEnd);
        }
        commit(unit, out);
    }
}

// Part i (from 0) of the nr parts that begin at the nodes ir[i].
void writeParts(const GisObject& object, int unit, std::string_view word) {
    putCount(unit, word, object.nr);
    for (std::int32_t i = 0; i < object.nr; ++i) {
        const auto part = static_cast<std::size_t>(i);
        const std::int64_t first = object.ir[part];
        const std::int64_t behind =
            i + 1 < object.nr ? object.ir[part + 1] : std::int64_t{gisN} + 1;
        putCount(unit, " ", behind - first);
        putNodes(unit, first - 1, behind - first);
    }
}

void writeRegion(const GisObject& object, int unit) {
    if (object.nr >= 2) return writeParts(object, unit, "Region ");
    putCount(unit, "Region ", 1);
    putCount(unit, " ", gisN);
    putNodes(unit, 0, gisN);
}

void writeLine(int unit) {
    put(unit, "Line ");
    putNode(unit, 0);
    putNode(unit, 1);
    endLine(unit);
}

void writePoint(int unit) {
    put(unit, kPoint);
    putNode(unit, 0);
    endLine(unit);
}

void writeText(int unit) {
    gisReserveNodes(3);
    put(unit, "Text\r\n");
    putLine(unit, gisDataLine);
    put(unit, "    ");
    putNode(unit, 1, kTextBoxDecimals);
    putNode(unit, 2, kTextBoxDecimals);
    endLine(unit);
}

}  // namespace

void gisMifWriteHeader(const GisAttributes& fields, int mifUnit) {
    put(mifUnit, "Version 300\r\nCharset \"WindowsLatin1\"\r\nDelimiter \",\"\r\n");
    putLine(mifUnit, gisMifCoordSys);
    putCount(mifUnit, "Columns ", fields.n);
    for (std::size_t i = 0; i < static_cast<std::size_t>(fields.n); ++i) {
        put(mifUnit, "  ");
        put(mifUnit, fields.name[i]);
        put(mifUnit, " ");
        put(mifUnit, fields.type[i]);
        if (fields.width[i] >= 1) {
            put(mifUnit, "(");
            putInteger(mifUnit, fields.width[i]);
            put(mifUnit, ")");
        }
        endLine(mifUnit);
    }
    put(mifUnit, "Data\r\n\r\n");
    checkWritten(mifUnit);
}

void gisMifWriteObject(const GisObject& object, int mifUnit) {
    if (object.point) {
        writePoint(mifUnit);
    } else if (object.multiPoint) {
        putCount(mifUnit, "MultiPoint ", gisN);
        putNodes(mifUnit, 0, gisN);
    } else if (object.line) {
        writeLine(mifUnit);
    } else if (object.pline) {
        writePolyline(mifUnit);
    } else if (object.plineMultiple) {
        writeParts(object, mifUnit, "Pline Multiple ");
    } else if (object.region) {
        writeRegion(object, mifUnit);
    } else if (object.text) {
        writeText(mifUnit);
    } else if (object.none) {
        put(mifUnit, "none\r\n");
    } else {
        gisStop(
            "ERROR 0350 - Trying to write a MIF object that is not yet supported.  Please contact ",
            SUPPORT_ADDRESS, ".");
    }
    checkWritten(mifUnit);
}

void gisMifWritePointAtNode(std::int32_t node, int mifUnit) {
    const std::size_t start = static_cast<std::size_t>(node - 1) * kNodeWidth;
    char* out = copyText(reserve(mifUnit, kPoint.size() + kNodeWidth + kLineEnd.size()), kPoint);
    out = copyText(out, {nodeTexts.data() + start, kNodeWidth});
    commit(mifUnit, copyText(out, kLineEnd));
    checkWritten(mifUnit);
}

}  // namespace vantelgis
