#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "archive/conversions.h"
#include "archive/head.h"
#include "archive/layer_output.h"
#include "archive/scanner.h"
#include "archive/vertices.h"
#include "geometry/distance.h"
#include "run/console.h"
#include "run/messages.h"
#include "run/opener.h"
#include "run/stop.h"
#include "run/unit_writing.h"
#include "text/paths.h"
#include "text/short_numbers.h"
#include "text/strings.h"

namespace vantelgis {

namespace {

constexpr FieldDefinition kLineFields[] = {
    {"Source", "Char", 50},      {"Type", "Char", 2},       {"Flags", "Char", 8},
    {"Column_1", "Char", 20},    {"Column_2", "Char", 20},  {"Column_3", "Char", 20},
    {"Column_4", "Char", 20},    {"Column_5", "Char", 20},  {"Column_6", "Char", 20},
    {"Z_Increment", "Float", 0}, {"Z_Maximum", "Float", 0}, {"Skew", "Float", 0},
    {"Comments", "Char", 200},
};
constexpr std::size_t kSectionIdWidth = 12;
constexpr FieldDefinition kPointFields[] = {
    {"Z", "Float", 0},
    {"MNR", "Float", 0},
    {"LCR", "Char", 1},
    {"XS_ID", "Char", kSectionIdWidth},
};

struct CrossSections {
    std::string_view archivePath;
    Archive archive;
    int lineLayer = 0;
    int pointLayer = 0;
    D12Object object;
    std::vector<float> z;    // elevations of the vertices in gisX and gisY
    std::int32_t count = 0;  // vertices
    std::int32_t nameless = 0;
    std::int32_t converted = 0;
    std::int32_t ignored = 0;
};

// A shapefile's families have names of their own; a MapInfo pair needs one.
Path pointLayerName(std::string_view outputPath) {
    Path name;
    FILEEXT(name, outputPath);
    if (!ASAME(name, ".mif")) return outputPath;
    FILENAME(name, outputPath);
    name += "_Pts.mif";
    return name;
}

void nameSection(CrossSections& run) {
    Text<100>& name = run.object.name;
    if (name.blank()) {
        Text<20> number;
        AINTEGERPREC0(number, ++run.nameless, 6);
        name = "xs";
        name += number;
    }
    consoleText(name, ", ");
    Text<100> sectionId;
    FILENAME(sectionId, name);
    if (sectionId.size() > kSectionIdWidth) {
        consoleLine("ERROR - XS ID exceeds 12 characters.");
        EXITS();
    }
}

// A relative name lies beside the archive.
Path sectionPath(const CrossSections& run) {
    Path path;
    FILEFOLDERPATH(path, run.archivePath);
    ADDFOLDER(path, path, run.object.name);
    Text<16> extension;
    FILEEXT(extension, path);
    if (!(extension == ".csv")) path += ".csv";
    return path;
}

void putSectionLine(int unit, float chainage, float z) {
    putFixed(unit, static_cast<double>(chainage), 12, 3);
    put(unit, ",");
    putFixed(unit, static_cast<double>(z), 10, 3);
    endLine(unit);
}

// A section always has the line of its first vertex, even if it has no vertex.
void writeSection(const CrossSections& run, std::string_view path) {
    int unit = 0;
    FILEOPEN(unit, "O ", path);
    put(unit, "\"!");
    put(unit, run.object.name);
    put(unit, "\"\r\n\"X\",\"Z\"\r\n");
    float chainage = 0;
    putSectionLine(unit, chainage, run.z[0]);
    for (std::size_t i = 1; i < static_cast<std::size_t>(std::max(run.count, 0)); ++i) {
        chainage += DISTANCE_8(gisX[i - 1], gisY[i - 1], gisX[i], gisY[i]);
        putSectionLine(unit, chainage, run.z[i]);
    }
    CLOSER(unit);
}

void writeLine(const CrossSections& run, std::string_view path) {
    gisDataLine = "\"";
    gisDataLine += path;
    gisDataLine += R"(","xz","","","","","","","",     0.000,   0.000,   0.000,"")";
    gisN = run.count;
    writePolyline(run.lineLayer);
}

// The first point of a section is its left end.
void writePoints(const CrossSections& run, std::string_view path) {
    constexpr std::string_view kBeforeSide = ",-1.,\"";
    constexpr std::size_t kSideColumn = kElevationColumns + kBeforeSide.size();
    Path rest{kBeforeSide};
    Text<1000> sectionId;
    FILENAME(sectionId, path);
    rest += R"(L",")";
    rest += sectionId;
    rest += "\"";
    composeElevationRow(0, rest);
    gisO_.point = true;
    for (std::int32_t node = 1; node <= run.count; ++node) {
        const float z = run.z[static_cast<std::size_t>(node - 1)];
        if (!run.archive.hasElevation(z)) continue;
        changeElevation(z);
        gisWritePointAtNode(run.pointLayer, node);
        gisWriteRecord(run.pointLayer, gisO_);
        gisDataLine.data()[kSideColumn] = 'C';
    }
    gisO_.point = false;
}

void ignoreObject(CrossSections& run, std::string_view line) {
    ++run.ignored;
    consoleLine("WARNING - Ignored invalid or unsupported string object: ", line);
    DPAUSE();
    d12PassOver(run.archive.unit, line, run.object);
}

void convertObject(CrossSections& run, std::string_view line) {
    nameSection(run);
    if (!run.object.data3d) return ignoreObject(run, line);
    if (!d12ReadVertices(run.archive, run.object, run.z, kMaxVertices, run.count)) return;
    const Path path = sectionPath(run);
    writeSection(run, path);
    writeLine(run, path);
    writePoints(run, path);
    ++run.converted;
}

}  // namespace

void convert_12da_to_xs(std::string_view inputPath, std::string_view outputPath) {
    CrossSections run;
    run.archivePath = inputPath;
    d12OpenArchive(run.archive, inputPath);
    run.lineLayer = openOutputLayer(outputPath, "L", kLineFields);
    run.pointLayer = openOutputLayer(pointLayerName(outputPath), "P", kPointFields);
    if (!d12BeginData(run.archive)) return;
    std::string_view line;
    while (d12NextObject(run.archive.unit, line, run.object)) convertObject(run, line);
    consoleLine("\nConverted ", run.converted,
                " string objects to MARVEN cross-sections and ignored ", run.ignored);
    consoleLine();
    gisCloseLayer(run.lineLayer);
    gisCloseLayer(run.pointLayer);
}

}  // namespace vantelgis
