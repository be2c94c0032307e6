#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "archive/conversions.h"
#include "archive/head.h"
#include "archive/layer_output.h"
#include "archive/scanner.h"
#include "archive/vertices.h"
#include "run/console.h"
#include "text/number_field.h"

namespace vantelgis {

bool includeHip = false;

namespace {

constexpr FieldDefinition kFields[] = {
    {"Z", "Float", 0},       {"dZ", "Float", 0},          {"Width", "Float", 0},
    {"Options", "Char", 20}, {"String_Type", "Char", 20},
};

struct StringsToGis {
    Archive archive;
    int gisID = 0;
    D12Object object;
    std::vector<float> z;    // elevations of the vertices in gisX and gisY
    std::int32_t count = 0;  // vertices
    std::int32_t converted = 0;
    std::int32_t ignored = 0;
};

// The row of the string's line. Those of its points differ in the elevation only.
void composeRow(const StringsToGis& run) {
    const bool ownElevation = run.object.data2d || run.object.hipData;
    Text<64> rest{R"(,   0.000,   0.000,"",")"};
    rest += run.object.typeText;
    rest += "\"";
    composeElevationRow(ownElevation ? run.z[0] : run.archive.nullValue, rest);
}

void writePoints(const StringsToGis& run, bool lineWritten) {
    gisO_.point = true;
    for (std::int32_t node = 1; node <= run.count; ++node) {
        const float z = run.z[static_cast<std::size_t>(node - 1)];
        if (!run.archive.hasElevation(z)) continue;
        changeElevation(z);
        if (lineWritten) {
            gisWritePointAtNode(run.gisID, node);
        } else {
            gisWriteObject(run.gisID, gisO_);  // the only vertex
        }
        gisWriteRecord(run.gisID, gisO_);
    }
    gisO_.point = false;
}

void countConverted(StringsToGis& run) {
    ++run.converted;
    if (run.converted % 10 != 0) return;
    constexpr int kColumns = 8;
    char columns[kColumns];
    integerField(columns, run.converted, kColumns);
    consoleText(std::string_view(columns, kColumns));
}

void writeString(StringsToGis& run) {
    composeRow(run);
    gisN = run.count;
    const bool isLine = run.count >= 2;
    if (isLine) {
        writePolyline(run.gisID);
    } else {
        consoleLine("\nLess than 2 vertices, omminting line output, data type: ",
                    run.object.typeText);
    }
    writePoints(run, isLine);
    countConverted(run);
}

void convertObject(StringsToGis& run, std::string_view line) {
    D12Object& object = run.object;
    if (!object.data2d && !object.data3d && !object.hipData) {
        ++run.ignored;
        d12PassOver(run.archive.unit, line, object);
        return;
    }
    if (!d12ReadVertices(run.archive, object, run.z, kMaxVertices, run.count)) return;
    if (!object.hipData || includeHip) writeString(run);
}

}  // namespace

void convert_12da_to_mif(std::string_view inputPath, std::string_view outputPath) {
    StringsToGis run;
    d12OpenArchive(run.archive, inputPath);
    consoleLine("\nConverting .12da breaklines to gis format...");
    run.gisID = openOutputLayer(outputPath, "PL", kFields);
    if (!d12BeginData(run.archive)) return;
    std::string_view line;
    while (d12NextObject(run.archive.unit, line, run.object)) convertObject(run, line);
    consoleLine("\nConverted ", run.converted, " string objects and ignored ", run.ignored);
    consoleLine();
    gisCloseLayer(run.gisID);
}

}  // namespace vantelgis
