#include <cstddef>
#include <cstdint>
#include <string_view>

#include "convert/archive_strings.h"
#include "convert/conversions.h"
#include "geometry/distance.h"
#include "gis/layers.h"
#include "gis/operations.h"
#include "run/console.h"
#include "run/messages.h"
#include "run/opener.h"
#include "run/platform.h"
#include "run/stop.h"
#include "run/unit_writing.h"
#include "text/paths.h"

namespace vantelgis {

namespace {

constexpr std::size_t kSectionIdWidth = 12;

constexpr FieldDefinition kLineFields[] = {
    {"Source", "Char", 50},      {"Type", "Char", 2},       {"Flags", "Char", 8},
    {"Column_1", "Char", 20},    {"Column_2", "Char", 20},  {"Column_3", "Char", 20},
    {"Column_4", "Char", 20},    {"Column_5", "Char", 20},  {"Column_6", "Char", 20},
    {"Z_Increment", "Float", 0}, {"Z_Maximum", "Float", 0}, {"Skew", "Float", 0},
    {"Comments", "Char", 200},
};
constexpr FieldDefinition kPointFields[] = {
    {"Z", "Float", 0},
    {"MNR", "Float", 0},
    {"LCR", "Char", 1},
    {"XS_ID", "Char", kSectionIdWidth},
};

struct CrossSections {
    std::string_view archivePath;
    ArchiveStrings strings;
    int lineLayer = 0;
    int pointLayer = 0;
    std::int32_t nameless = 0;
};

// A shapefile's families have names of their own; a MapInfo pair needs one.
Path pointLayerName(std::string_view outputPath) {
    if (!hasExtension(outputPath, ".mif")) return outputPath;
    Path name = baseNameOf(outputPath);
    name += "_Pts.mif";
    return name;
}

void nameSection(CrossSections& run) {
    Text<100>& name = run.strings.object.name;
    if (name.blank()) name = Joined<16>("xs", ZeroPaddedText(++run.nameless, 6));
    consoleText(name, ", ");
    if (baseNameOf(name).size() > kSectionIdWidth) stopWith("ERROR - XS ID exceeds 12 characters.");
}

// A relative name lies beside the archive.
Path sectionPath(const CrossSections& run) {
    Path folder = folderOf(run.archivePath);
    Path name = run.strings.object.name.view();
    platform::bringToOneForm(folder, name);
    Path path = joinedPath(folder, name);
    if (!hasExtension(path, ".csv")) path += ".csv";
    return path;
}

void addSectionLine(OutputLine& line, float chainage, float z) {
    line.fixed<12, 3>(static_cast<double>(chainage));
    line.text(",");
    line.fixed<10, 3>(static_cast<double>(z));
    line.end();
}

// A section always has the line of its first vertex, even if it has no vertex.
void writeSection(const ArchiveStrings& strings, std::string_view path) {
    int unit = 0;
    openUnit(unit, "O ", path);
    OutputLine line{unit, Line::capacity()};
    line.text("\"!");
    line.text(strings.object.name);
    line.text("\"\r\n\"X\",\"Z\"");
    line.end();
    const ArchiveVertices& v = strings.vertices;
    float chainage = 0;
    addSectionLine(line, chainage, v.z[0]);
    for (std::size_t i = 1; i < v.size(); ++i) {
        chainage += distanceBetween(v.x[i - 1], v.y[i - 1], v.x[i], v.y[i]);
        addSectionLine(line, chainage, v.z[i]);
    }
    closeUnit(unit);
}

// The first point of a section is its left end.
void writePoints(const CrossSections& run, std::string_view path) {
    constexpr std::string_view kBeforeSide = ",-1.,\"";
    const ArchiveStrings& strings = run.strings;
    ElevationRow row(0, Joined<Line::capacity()>(kBeforeSide, R"(L",")", baseNameOf(path), "\""));
    for (std::size_t i = 0; i < strings.vertices.size(); ++i) {
        const float z = strings.vertices.z[i];
        if (!strings.archive.hasElevation(z)) continue;
        row.setElevation(z);
        gisWritePoint(run.pointLayer, strings.nodes, i, row);
        row.setInRest(kBeforeSide.size(), 'C');
    }
}

void ignoreObject(ArchiveStrings& strings, std::string_view line) {
    ++strings.ignored;
    consoleLine("WARNING - Ignored invalid or unsupported string object: ", line);
    pauseRun();
    d12PassOver(strings.archive.unit, line, strings.object);
}

void convertObject(CrossSections& run, std::string_view line) {
    ArchiveStrings& strings = run.strings;
    nameSection(run);
    if (!strings.object.data3d) return ignoreObject(strings, line);
    if (!strings.readVertices()) return;
    const Path path = sectionPath(run);
    writeSection(strings, path);
    writePolyline(
        strings, run.lineLayer,
        {Joined<Line::capacity()>(
            "\"", path, R"(","xz","","","","","","","",     0.000,   0.000,   0.000,"")")});
    writePoints(run, path);
    ++strings.converted;
}

}  // namespace

void convertCrossSections(const RunSettings& settings) {
    CrossSections run;
    Archive& archive = run.strings.archive;
    run.archivePath = settings.inputFile1;
    d12OpenArchive(archive, settings.inputFile1);
    run.lineLayer = gisCreateLayer(settings.outputFile, "L", kLineFields);
    run.pointLayer = gisCreateLayer(pointLayerName(settings.outputFile), "P", kPointFields);
    if (!d12BeginData(archive)) return;
    std::string_view line;
    while (d12NextObject(archive.unit, line, run.strings.object)) convertObject(run, line);
    consoleLine("\nConverted ", run.strings.converted,
                " string objects to MARVEN cross-sections and ignored ", run.strings.ignored);
    consoleLine();
    gisCloseLayer(run.lineLayer);
    gisCloseLayer(run.pointLayer);
}

}  // namespace vantelgis
