#include <cstddef>
#include <deque>
#include <string_view>

#include "archive/writer.h"
#include "convert/conversions.h"
#include "convert/line_objects.h"
#include "convert/tables.h"
#include "gis/layer_table.h"
#include "gis/layers.h"
#include "gis/operations.h"
#include "run/console.h"
#include "run/opener.h"
#include "run/stop.h"
#include "text/characters.h"
#include "text/free_format.h"
#include "text/joined.h"
#include "text/limits.h"
#include "text/strings.h"

namespace vantelgis {

namespace {

struct Result {
    double x;
    double y;
    float size;
    float angle;
};

// A vector of either would be copied as it grows.
struct Results {
    int archive = 0;
    int layer = 0;
    bool vectorData = false;
    std::deque<Result> points;
    std::deque<D12SymbolText> symbols;  // of those whose location is written
};

// A type such as Char(254) or Decimal(10,3) has a number behind its first parenthesis.
bool hasWidth(std::string_view type) {
    const std::size_t parenthesis = type.find('(');
    if (parenthesis == std::string_view::npos) return false;
    std::string_view number = withoutLeadingBlanks(type.substr(parenthesis + 1));
    if (!number.empty() && (number[0] == '+' || number[0] == '-')) number.remove_prefix(1);
    return !number.empty() && isDigit(number[0]);
}

// What the checks look at of the layer's fields, whatever its format. Only those of a .mif have
// types.
struct Fields {
    std::int32_t count;
    std::string_view second;  // its name
    std::span<const Text<24>> mifTypes;
};

Fields fieldsOf(const GisLayer& layer) {
    const mifL_& mif = layer.mif;
    const dbfL_& dbf = layer.dbf[0];
    if (layer.kind == GisKind::shp) return {dbf.nFields, dbf.fieldName[1], {}};
    return {mif.nAttr, mif.attrName[1], {mif.attrType, static_cast<std::size_t>(mif.nAttr)}};
}

void checkFields(const Fields& fields) {
    if (fields.count < 1) stopWith("", "ERROR - Unable to detect any existing attributes.", "");
    for (const std::string_view type : fields.mifTypes)
        if (!containsIgnoringCase(type, "Float") && !hasWidth(type)) stopEndOfFile();
}

// The name of the second field says whether it turns the symbols.
bool hasAngles(const Fields& fields) {
    constexpr std::size_t kNameColumns = 24;
    if (fields.count < 2) return false;
    if (!containsIgnoringCase(fields.second.substr(0, kNameColumns), "Angle")) return false;
    consoleLine("\nSecond field contains angle information, assuming vector data.\n");
    return true;
}

void readValues(std::string_view record, bool withAngle, Result& result) {
    FreeFormat list{record};
    requireValue(takeReal(list, result.size));
    if (withAngle) requireValue(takeReal(list, result.angle));
}

void readPoints(Results& run) {
    ObjectNodes nodes{kMaxNodes2d};
    GisObject object;
    std::string_view record;
    while (nextObject(run.layer, object, record, 2)) {
        if (object.kind != ObjectKind::point) continue;
        if (run.points.size() == kMaxResultPoints) {
            stopWith("", Joined<100>("ERROR - Exceeded maximum number of points, please contact ",
                                     SUPPORT_ADDRESS));
        }
        gisReadObject(run.layer, object, nodes);
        Result result{nodes.x[0], nodes.y[0], 0, 0};
        readValues(record, run.vectorData, result);
        addRow(run.points, result);
    }
}

// A point makes room for its symbol: the table of those grows as that of these becomes empty.
void writeLocations(Results& run) {
    d12BeginLocations(run.archive);
    OutputLine line{run.archive, kLinesRoom};
    for (; !run.points.empty(); run.points.pop_front()) {
        const Result& point = run.points.front();
        const D12SymbolText symbol{point.size, point.angle};
        d12AddLocation(line, point.x, point.y, symbol);
        if (run.vectorData) addRow(run.symbols, symbol);
    }
    d12EndBlock(run.archive);
}

void writeSymbols(const Results& run) {
    d12BeginSymbols(run.archive);
    OutputLine line{run.archive, kLinesRoom};
    for (const D12SymbolText& symbol : run.symbols) d12AddSymbol(line, symbol);
    d12EndBlock(run.archive);
}

}  // namespace

void convertResults(const RunSettings& settings) {
    Results run;
    consoleLine("\nConverting results in gis format to .12da format...");
    run.archive = createArchive(settings, settings.inputFile1);
    run.layer = openInputLayer(settings.inputFile1);
    const Fields fields = fieldsOf(gisLayer(run.layer));
    checkFields(fields);
    run.vectorData = hasAngles(fields);

    consoleLine("\nAllocating memory for storing attribute data.\n");
    consoleLine("\nSearching for Points...\n");
    readPoints(run);
    gisCloseLayer(run.layer);
    consoleLine("\nNumber of points read from gis file: ", run.points.size());

    consoleLine("\nWriting coordinate data to .12da file...");
    writeLocations(run);
    consoleLine("   Done.");
    if (run.vectorData) {
        consoleLine("\nWriting symbol data for vector dataset to .12da file...");
        writeSymbols(run);
        consoleLine("   Done.");
    }
    closeUnit(run.archive);
}

}  // namespace vantelgis
