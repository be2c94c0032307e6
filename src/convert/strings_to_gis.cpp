#include <cstddef>
#include <string_view>

#include "convert/archive_strings.h"
#include "convert/conversions.h"
#include "gis/layers.h"
#include "gis/operations.h"
#include "run/console.h"

namespace vantelgis {

bool includeHip = false;

namespace {

constexpr FieldDefinition kFields[] = {
    {"Z", "Float", 0},       {"dZ", "Float", 0},          {"Width", "Float", 0},
    {"Options", "Char", 20}, {"String_Type", "Char", 20},
};

// A 3d string has its elevations at its points; its line shows the archive's null.
float elevationOfLine(const ArchiveStrings& run) {
    const bool hasOne = run.object.data2d || run.object.hipData;
    return hasOne ? run.vertices.z[0] : run.archive.nullValue;
}

void writePoints(const ArchiveStrings& run, int layer, ElevationRow& row) {
    for (std::size_t i = 0; i < run.vertices.size(); ++i) {
        const float z = run.vertices.z[i];
        if (!run.archive.hasElevation(z)) continue;
        row.setElevation(z);
        gisWritePoint(layer, run.nodes, i, row);
    }
}

void countConverted(ArchiveStrings& run) {
    ++run.converted;
    if (run.converted % 10 == 0) consoleText(IntegerText(run.converted, 8));
}

// The line and the points of a string share a row but for its elevation.
void writeString(ArchiveStrings& run, int layer) {
    const Joined<64> rest(R"(,   0.000,   0.000,"",")", run.object.typeText, "\"");
    ElevationRow row(elevationOfLine(run), rest);
    if (run.vertices.count >= 2) {
        writePolyline(run, layer, row);
    } else {
        consoleLine("\nLess than 2 vertices, omminting line output, data type: ",
                    run.object.typeText);
    }
    writePoints(run, layer, row);
    countConverted(run);
}

void convertObject(ArchiveStrings& run, std::string_view line, int layer) {
    const D12Object& object = run.object;
    if (!object.data2d && !object.data3d && !object.hipData) {
        ++run.ignored;
        d12PassOver(run.archive.unit, line, run.object);
        return;
    }
    if (!run.readVertices()) return;
    if (!object.hipData || includeHip) writeString(run, layer);
}

}  // namespace

void convertStringsToGis(const RunSettings& settings) {
    ArchiveStrings run;
    d12OpenArchive(run.archive, settings.inputFile1);
    consoleLine("\nConverting .12da breaklines to gis format...");
    int layer = gisCreateLayer(settings.outputFile, "PL", kFields);
    if (!d12BeginData(run.archive)) return;
    std::string_view line;
    while (d12NextObject(run.archive.unit, line, run.object)) convertObject(run, line, layer);
    consoleLine("\nConverted ", run.converted, " string objects and ignored ", run.ignored);
    consoleLine();
    gisCloseLayer(layer);
}

}  // namespace vantelgis
