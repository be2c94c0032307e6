#include <algorithm>
#include <cstddef>
#include <vector>

#include "driver/archive_output.h"
#include "driver/conversions.h"
#include "driver/sections.h"
#include "driver/tables.h"
#include "gis/layers.h"
#include "gis/operations.h"
#include "run/console.h"
#include "run/opener.h"
#include "run/stop.h"
#include "run/unit_writing.h"
#include "text/characters.h"
#include "text/free_format.h"
#include "text/number_field.h"
#include "text/strings.h"

namespace vantelgis {

namespace {

constexpr std::int32_t kMaxNodes = 1000;
constexpr std::size_t kMaxPoints = 1'000'000;

struct ResultPoint {
    double x = 0;
    double y = 0;
    float size = 0;
    float angle = 0;
};

struct Results {
    int archive = 0;
    int layer = 0;
    bool isShapefile = false;
    bool vectorData = false;
    std::vector<ResultPoint> points;
};

// A type such as Char(254) or Decimal(10,3) has a number behind its first parenthesis.
bool hasWidth(std::string_view type) {
    const std::size_t parenthesis = type.find('(');
    if (parenthesis == std::string_view::npos) return false;
    std::string_view number = withoutLeadingBlanks(type.substr(parenthesis + 1));
    if (!number.empty() && (number[0] == '+' || number[0] == '-')) number.remove_prefix(1);
    return !number.empty() && isDigit(number[0]);
}

void checkFields(const Results& run) {
    const GisLayer& layer = gisLayer(run.layer);
    if ((run.isShapefile ? layer.dbf[0].nFields : layer.mif.nAttr) < 1) {
        consoleLine("\nERROR - Unable to detect any existing attributes.\n");
        EXITS();
    }
    if (run.isShapefile) return;
    for (std::size_t i = 0; i < static_cast<std::size_t>(layer.mif.nAttr); ++i) {
        const std::string_view type = layer.mif.attrType[i];
        if (!FLAGEXISTS(type, "Float") && !hasWidth(type)) stopEndOfFile();
    }
}

// The name of the second field says whether it turns the symbols.
bool hasAngles(const Results& run) {
    constexpr std::size_t kNameColumns = 24;
    const GisLayer& layer = gisLayer(run.layer);
    const std::int32_t fields = run.isShapefile ? layer.dbf[0].nFields : layer.mif.nAttr;
    if (fields < 2) return false;
    const std::string_view name =
        run.isShapefile ? layer.dbf[0].fieldName[1].view() : layer.mif.attrName[1].view();
    if (!FLAGEXISTS(name.substr(0, kNameColumns), "Angle")) return false;
    consoleLine("\nSecond field contains angle information, assuming vector data.\n");
    return true;
}

void readValues(std::string_view record, bool withAngle, ResultPoint& point) {
    FreeFormat list{record};
    requireValue(takeReal(list, point.size));
    if (withAngle) requireValue(takeReal(list, point.angle));
}

void readPoints(Results& run) {
    ObjectNodes nodes{kMaxNodes};
    Line record;
    while (!gisAtEnd(run.layer)) {
        if (!gisObjectType(run.layer, gisO_)) continue;
        gisReadRecord(run.layer, gisO_, record);
        if (!gisO_.point) continue;
        if (run.points.size() == kMaxPoints) {
            consoleLine("\nERROR - Exceeded maximum number of points, please contact ",
                        SUPPORT_ADDRESS);
            EXITS();
        }
        gisReadObject(run.layer, gisO_, nodes);
        ResultPoint point{nodes.xc, nodes.yc, 0, 0};
        readValues(record, run.vectorData, point);
        addRow(run.points, point);
    }
}

char* composeText(char* out, std::string_view text) {
    return std::copy(text.begin(), text.end(), out);
}

char* composeSize(char* out, const ResultPoint& point) {
    constexpr int kWidth = 10;
    constexpr int kDecimals = 4;
    return fixedField(out, static_cast<double>(point.size), kWidth, kDecimals);
}

void writeCoordinates(const Results& run) {
    constexpr int kWidth = 20;
    constexpr int kDecimals = 4;
    put(run.archive, "  // xy location of symbol\r\n  data_3d {\r\n");
    for (const ResultPoint& point : run.points) {
        char* p = composeText(reserve(run.archive, kNodeLineRoom), "    ");
        p = fixedField(p, point.x, kWidth, kDecimals);
        *p++ = ' ';
        p = fixedField(p, point.y, kWidth, kDecimals);
        *p++ = ' ';
        commitLine(run.archive, composeSize(p, point));
    }
    put(run.archive, "  }\r\n");
}

// One symbol for each point, in the order of the coordinates. Its style has one quote too many at
// the front, as its readers are used to.
void writeSymbols(const Results& run) {
    constexpr int kRotationWidth = 6;
    constexpr int kRotationDecimals = 2;
    constexpr std::size_t kRoom = 320;
    put(run.archive, "  symbol_data{\r\n");
    for (const ResultPoint& point : run.points) {
        char* p = composeText(reserve(run.archive, kRoom),
                              "    properties {\r\n"
                              "      style     \"\"ARROW 30 BEARING\"\r\n"
                              "      colour    red\r\n"
                              "      size    ");
        p = composeText(composeSize(p, point), "\r\n      rotation ");
        p = fixedField(p, static_cast<double>(point.angle), kRotationWidth, kRotationDecimals);
        commitLine(run.archive, composeText(p,
                                            "\r\n"
                                            "      offset    0\r\n"
                                            "      raise     0\r\n"
                                            "    }"));
    }
    put(run.archive, "  }\r\n");
}

}  // namespace

void convertResults(const RunSettings& settings) {
    Results run;
    consoleLine("\nConverting results in gis format to .12da format...");
    openArchive(run.archive, settings, settings.inputFile1);
    run.layer = gisOpenLayer(settings.inputFile1, {}, "I ");
    gisReadHeader(run.layer);
    run.isShapefile = gisLayer(run.layer).kind == GisKind::shp;
    checkFields(run);
    run.vectorData = hasAngles(run);

    consoleLine("\nAllocating memory for storing attribute data.\n");
    consoleLine("\nSearching for Points...\n");
    readPoints(run);
    gisCloseLayer(run.layer);
    consoleLine("\nNumber of points read from gis file: ", run.points.size());

    consoleLine("\nWriting coordinate data to .12da file...");
    writeCoordinates(run);
    consoleLine("   Done.");
    if (run.vectorData) {
        consoleLine("\nWriting symbol data for vector dataset to .12da file...");
        writeSymbols(run);
        consoleLine("   Done.");
    }
    CLOSER(run.archive);
}

}  // namespace vantelgis
