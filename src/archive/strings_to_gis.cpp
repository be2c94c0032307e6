#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "archive/conversions.h"
#include "archive/head.h"
#include "archive/scanner.h"
#include "archive/vertices.h"
#include "gis/layers.h"
#include "gis/operations.h"
#include "gis/records.h"
#include "run/console.h"
#include "run/unit_reading.h"
#include "text/number_field.h"
#include "text/strings.h"

namespace vantelgis {

bool includeHip = false;

namespace {

constexpr FieldDefinition kFields[] = {
    {"Z", "Float", 0},       {"dZ", "Float", 0},          {"Width", "Float", 0},
    {"Options", "Char", 20}, {"String_Type", "Char", 20},
};
constexpr int kElevationColumns = 16;
constexpr int kCountColumns = 8;

struct StringsToGis {
    Archive archive;
    int gisID = 0;
    D12Object object;
    std::vector<float> z;    // elevations of the vertices in gisX and gisY
    std::int32_t count = 0;  // vertices
    std::int32_t converted = 0;
    std::int32_t ignored = 0;
};

void openLayer(StringsToGis& run, std::string_view path) {
    consoleLine("\nConverting .12da breaklines to gis format...");
    gisSetFields(kFields);
    run.gisID = gisOpenLayer(path, "PL", "O ");
    gisWriteHeader(run.gisID);
    gisO_.clear();
}

// Composes the string's attribute row; the rows of its points differ in the elevation only.
void composeRow(std::string_view typeText, float z) {
    char columns[kElevationColumns];
    fixedField(columns, static_cast<double>(z), kElevationColumns, 3);
    gisDataLine = std::string_view(columns, kElevationColumns);
    gisDataLine += R"(,   0.000,   0.000,"",")";
    gisDataLine += typeText;
    gisDataLine += "\"";
}

void changeElevation(float z) {
    fixedField(gisDataLine.data(), static_cast<double>(z), kElevationColumns, 3);
}

void writeLine(const StringsToGis& run) {
    gisO_.pline = true;
    gisWriteObject(run.gisID, gisO_);
    gisWriteRecord(run.gisID, gisO_);
    gisO_.pline = false;
}

void writePoints(const StringsToGis& run, bool lineWritten) {
    gisO_.point = true;
    for (std::int32_t node = 1; node <= run.count; ++node) {
        const float z = run.z[static_cast<std::size_t>(node - 1)];
        if (!run.archive.hasElevation(z)) continue;
        changeElevation(z);
        if (lineWritten) {
            gisWritePointAtNode(run.gisID, gisO_, node);
        } else {
            gisWriteObject(run.gisID, gisO_);
        }
        gisWriteRecord(run.gisID, gisO_);
    }
    gisO_.point = false;
}

void countConverted(StringsToGis& run) {
    ++run.converted;
    if (run.converted % 10 != 0) return;
    char columns[kCountColumns];
    integerField(columns, run.converted, kCountColumns);
    consoleText(std::string_view(columns, kCountColumns));
}

// Writes the string whose vertices were read.
void writeString(StringsToGis& run) {
    const D12Object& object = run.object;
    const bool ownElevation = object.data2d || object.hipData;
    composeRow(object.typeText, ownElevation ? run.z[0] : run.archive.nullValue);
    gisN = run.count;
    const bool lineWritten = run.count >= 2;
    if (lineWritten) {
        writeLine(run);
    } else {
        consoleLine("\nLess than 2 vertices, omminting line output, data type: ", object.typeText);
    }
    writePoints(run, lineWritten);
    countConverted(run);
}

void convertObject(StringsToGis& run, std::string_view line) {
    D12Object& object = run.object;
    if (!d12ObjectType(run.archive.unit, line, object)) return;
    if (!object.data2d && !object.data3d && !object.hipData) {
        ++run.ignored;
        d12PassOver(run.archive.unit, line, object);
        return;
    }
    if (!d12ReadVertices(run.archive, object, run.z, kMaxVertices, run.count)) return;
    if (object.hipData && !includeHip) return;
    writeString(run);
}

}  // namespace

void convert_12da_to_mif(std::string_view inputPath, std::string_view outputPath) {
    StringsToGis run;
    d12OpenArchive(run.archive, inputPath);
    openLayer(run, outputPath);
    if (!d12BeginData(run.archive)) return;
    while (!atEnd(run.archive.unit)) {
        std::string_view line;
        if (d12ReadLine(run.archive.unit, line, kObjectLineCapacity)) convertObject(run, line);
    }
    consoleLine("\nConverted ", run.converted, " string objects and ignored ", run.ignored);
    consoleLine();
    gisCloseLayer(run.gisID);
}

}  // namespace vantelgis
