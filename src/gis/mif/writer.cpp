#include "gis/mif/writer.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "gis/mif/files.h"
#include "gis/report.h"
#include "run/unit_writing.h"

namespace vantelgis {

Line gisMifCoordSys;

namespace {

// The columns of a coordinate, 9 of them before the point: a northing of 9 digits touches the
// easting in front of it, and what is longer, its sign included, becomes asterisks.
constexpr int kFieldWidth = 16;
constexpr int kCoordinateDecimals = 6;
constexpr int kTextBoxDecimals = 3;
constexpr std::size_t kNodeWidth = 2 * kFieldWidth;
constexpr std::size_t kNodeLineRoom = kNodeWidth + 16;

void checkWritten(int mifUnit) {
    if (writeFailed(mifUnit)) gisStop(kMifWriteFailure);
}

template <int Decimals = kCoordinateDecimals>
void addNode(OutputLine& line, const OutputNodes& nodes, std::size_t i) {
    line.fixed<kFieldWidth, Decimals>(nodes.x()[i]);
    line.fixed<kFieldWidth, Decimals>(nodes.y()[i]);
}

// A line of its own for each node from index `first` to before `end`.
void putNodes(int unit, const OutputNodes& nodes, std::size_t first, std::size_t end) {
    OutputLine line{unit, kNodeLineRoom};
    for (std::size_t i = first; i < end; ++i) {
        addNode(line, nodes, i);
        line.end();
    }
}

void putCount(int unit, std::string_view word, std::int64_t count) {
    OutputLine line{unit, kNodeLineRoom};
    line.text(word);
    line.integer(count);
    line.end();
}

// Keeps what is written of each node, for the points at them. Many lines go into the unit's buffer
// at a time.
void writePolyline(int unit, OutputNodes& nodes) {
    constexpr std::size_t kLinesAtOnce = 1024;
    putCount(unit, "Pline ", std::ssize(nodes.x()));
    char* text = nodes.roomForTexts(kNodeWidth);
    OutputLine line{unit, std::min(nodes.size(), kLinesAtOnce) * kNodeLineRoom};
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        char* const y = fixedField<kFieldWidth, kCoordinateDecimals>(text, nodes.x()[i]);
        char* const behind = fixedField<kFieldWidth, kCoordinateDecimals>(y, nodes.y()[i]);
        line.text({text, kNodeWidth});
        line.end();
        text = behind;
    }
    nodes.keepTexts();
}

// Each part runs from the node with which it begins to that of the next one.
void writeParts(int unit, const GisObject& object, const OutputNodes& nodes,
                std::string_view word) {
    auto starts = object.partStarts;
    if (starts.size() == 1 && object.kind == ObjectKind::region) starts = {};  // takes all nodes
    const std::size_t nParts = std::max<std::size_t>(starts.size(), 1);
    putCount(unit, word, static_cast<std::int64_t>(nParts));
    for (std::size_t part = 0; part < nParts; ++part) {
        const std::int64_t first = starts.empty() ? 1 : std::max(starts[part], 1);
        const std::int64_t behind =
            part + 1 < nParts ? starts[part + 1] : std::ssize(nodes.x()) + 1;
        putCount(unit, " ", behind - first);
        putNodes(unit, nodes, static_cast<std::size_t>(first - 1),
                 static_cast<std::size_t>(behind - 1));
    }
}

void writeLine(int unit, const OutputNodes& nodes) {
    OutputLine line{unit, 2 * kNodeLineRoom};
    line.text("Line ");
    addNode(line, nodes, 0);
    addNode(line, nodes, 1);
    line.end();
}

void writePoint(int unit, const OutputNodes& nodes, std::size_t i) {
    OutputLine line{unit, kNodeLineRoom};
    line.text("Point ");
    if (const char* const text = nodes.text(i); text != nullptr) {
        line.text({text, kNodeWidth});
    } else {
        addNode(line, nodes, i);
    }
    line.end();
}

// The row is what is shown; its box lies between the second and the third node.
void writeText(int unit, const OutputNodes& nodes, std::string_view row) {
    put(unit, "Text\r\n");
    putLine(unit, row);
    OutputLine line{unit, 2 * kNodeLineRoom};
    line.text("    ");
    addNode<kTextBoxDecimals>(line, nodes, 1);
    addNode<kTextBoxDecimals>(line, nodes, 2);
    line.end();
}

// A reader separates the values by commas, as the header says; the row holds them so already.
void writeRecord(mifL_& layer, std::string_view objectName, std::string_view row) {
    layer.objectName = objectName;
    putLine(layer.midUnit, row);
    if (writeFailed(layer.midUnit)) gisStop(midWriteFailure(layer));
}

}  // namespace

void gisMifWriteHeader(FieldDefinitions fields, int mifUnit) {
    put(mifUnit, "Version 300\r\nCharset \"WindowsLatin1\"\r\nDelimiter \",\"\r\n");
    putLine(mifUnit, gisMifCoordSys);
    putCount(mifUnit, "Columns ", std::ssize(fields));
    OutputLine line{mifUnit, Line::capacity()};
    for (const FieldDefinition& field : fields) {
        line.text("  ");
        line.text(field.name);
        line.text(" ");
        line.text(field.type);
        if (field.width >= 1) {
            line.text("(");
            line.integer(field.width);
            line.text(")");
        }
        line.end();
    }
    put(mifUnit, "Data\r\n\r\n");  // the empty line is customary, no reader needs it
    checkWritten(mifUnit);
}

void gisMifWriteObject(mifL_& layer, const GisObject& object, OutputNodes& nodes,
                       std::string_view row) {
    const int unit = layer.mifUnit;
    switch (object.kind) {
        case ObjectKind::point: writePoint(unit, nodes, 0); break;
        case ObjectKind::multiPoint:
            putCount(unit, "MultiPoint ", std::ssize(nodes.x()));
            putNodes(unit, nodes, 0, nodes.size());
            break;
        case ObjectKind::line: writeLine(unit, nodes); break;
        case ObjectKind::polyline: writePolyline(unit, nodes); break;
        case ObjectKind::multiPolyline: writeParts(unit, object, nodes, "Pline Multiple "); break;
        case ObjectKind::region: writeParts(unit, object, nodes, "Region "); break;
        case ObjectKind::text: writeText(unit, nodes, row); break;
        case ObjectKind::none: put(unit, "none\r\n"); break;
        default:
            gisStop(
                "ERROR 0350 - Trying to write a MIF object that is not yet supported.  Please "
                "contact ",
                SUPPORT_ADDRESS, ".");
    }
    checkWritten(unit);
    writeRecord(layer, object.name, row);
}

void gisMifWritePoint(mifL_& layer, const OutputNodes& nodes, std::size_t i, std::string_view row) {
    writePoint(layer.mifUnit, nodes, i);
    checkWritten(layer.mifUnit);
    writeRecord(layer, {}, row);
}

}  // namespace vantelgis
