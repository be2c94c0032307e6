#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

#include "driver/archive_output.h"
#include "driver/conversions.h"
#include "driver/interpolation.h"
#include "driver/projection.h"
#include "driver/sections.h"
#include "driver/snapping.h"
#include "gis/layers.h"
#include "gis/operations.h"
#include "run/console.h"
#include "run/opener.h"
#include "run/stop.h"
#include "run/unit_writing.h"
#include "text/free_format.h"
#include "text/number_field.h"
#include "text/paths.h"

namespace vantelgis {

namespace {

constexpr std::int32_t kMaxNodes = 100'000;
constexpr std::size_t kMaxPoints = 1'000'000;

// Number fields of the archive and of the check layers' records: columns and decimals.
constexpr int kZWidth = 12;
constexpr int kZDecimals = 4;
constexpr int kElevationWidth = 16;
constexpr int kElevationDecimals = 3;

struct Breaklines3d {
    int archive = 0;
    int layer = 0;    // of the points, then of the lines
    int dangles = 0;  // check layer
    Path linesFile;
    BreaklinePoints points;
    std::int32_t counter = 0;
    float elevation = 0;  // of the polyline; an empty value keeps that of the one before
    bool dangling = false;
    Line record;
    ObjectNodes nodes{kMaxNodes};
    std::vector<VertexElevation> elevations = std::vector<VertexElevation>(kMaxNodes);
};

void readElevation(std::string_view record, float& elevation) {
    FreeFormat list{record};
    requireValue(takeReal(list, elevation));
}

int openInput(std::string_view name) {
    const int layer = gisOpenLayer(name, {}, "I ");
    gisReadHeader(layer);
    return layer;
}

// A layer beside the lines that shows what needs the person's eye; each record is an elevation.
int openCheckLayer(std::string_view name, std::string_view family) {
    constexpr FieldDefinition kFields[] = {{"Z", "Float", 0}};
    gisSetFields(kFields);
    const int layer = gisOpenLayer(name, family, "O ");
    gisWriteHeader(layer);
    return layer;
}

// The name of such a layer: its extension, which gives its format, is that of `formatOf`.
Path checkLayerName(std::string_view linesFile, std::string_view ending,
                    std::string_view formatOf) {
    Path name;
    FILENAMEPATH(name, linesFile);
    name += ending;
    Text<16> extension;
    FILEEXT(extension, formatOf);
    name += extension;
    return name;
}

void setRecord(float value, int width, int decimals) {
    char field[kMaxFieldWidth];
    const char* end = fixedField(field, static_cast<double>(value), width, decimals);
    gisDataLine = std::string_view(field, static_cast<std::size_t>(end - field));
}

void readPoints(Breaklines3d& run) {
    float z = 0;
    while (!gisAtEnd(run.layer)) {
        if (!gisObjectType(run.layer, gisO_)) continue;
        gisReadRecord(run.layer, gisO_, run.record);
        if (!gisO_.point) continue;
        if (run.points.size() == kMaxPoints) {
            consoleLine("\nERROR - Exceeded maximum number of breakline points: ", kMaxPoints,
                        "\n");
            consolePause("");
            EXITS();
        }
        gisReadObject(run.layer, gisO_, run.nodes);
        readElevation(run.record, z);
        run.points.add(run.nodes.x[0], run.nodes.y[0], z);
    }
    run.points.index();
}

// The reader's record is live: it goes on with the polyline's next section behind this one.
void writeDangle(Breaklines3d& run) {
    const std::int32_t parts = gisO_.nr;
    const std::int32_t firstPart = gisO_.ir[0];
    gisO_.pline = true;
    gisO_.nr = gisO_.ir[0] = 1;
    gisN = run.nodes.n;
    gisReserveNodes(gisN);
    std::copy_n(run.nodes.x.begin(), gisN, gisX.begin());
    std::copy_n(run.nodes.y.begin(), gisN, gisY.begin());
    setRecord(run.elevation, kElevationWidth, kElevationDecimals);
    gisWriteObject(run.dangles, gisO_);
    gisWriteRecord(run.dangles, gisO_);
    gisO_.pline = false;
    gisO_.nr = parts;
    gisO_.ir[0] = firstPart;
    run.dangling = true;
}

void writeNodes(int unit, const ObjectNodes& nodes, std::span<const VertexElevation> elevations) {
    for (std::size_t i = 0; i < elevations.size(); ++i) {
        char* end = composeNode(reserve(unit, kNodeLineRoom), nodes.x[i], nodes.y[i]);
        const auto z = static_cast<double>(elevations[i].z);
        commitLine(unit, fixedField(end, z, kZWidth, kZDecimals));
    }
}

void writeString(Breaklines3d& run, std::span<const VertexElevation> elevations) {
    constexpr std::size_t kNameDigits = 8;
    const IntegerText digits{run.counter};
    Text<16> name =
        std::string_view("00000000").substr(std::min(std::string_view(digits).size(), kNameDigits));
    name += digits;
    beginString(run.archive, "3d", name);
    writeNodes(run.archive, run.nodes, elevations);
    endString(run.archive);
}

void convertSection(Breaklines3d& run) {
    const auto n = static_cast<std::size_t>(run.nodes.n);
    const std::span<const double> x(run.nodes.x.data(), n);
    const std::span<const double> y(run.nodes.y.data(), n);
    const std::span elevations(run.elevations.data(), n);
    tellPolyline(++run.counter, run.nodes.n);
    if (!snapVertices(run.points, x, y, run.elevation, elevations)) {
        consoleLine("no snapped points - using polyline elevation.");
    } else {
        consoleLine("found snapped points - interpolating.");
        if (interpolateElevations(x, y, elevations)) writeDangle(run);
    }
    writeString(run, elevations);
}

void convertLines(Breaklines3d& run) {
    while (!gisAtEnd(run.layer)) {
        if (!gisObjectType(run.layer, gisO_)) continue;
        gisReadRecord(run.layer, gisO_, run.record);
        if (!isLineLike(gisO_)) continue;
        const std::int32_t sections = countSections(gisO_);
        for (std::int32_t section = 1; section <= sections; ++section) {
            gisReadObject(run.layer, gisO_, run.nodes);
            if (section == 1) readElevation(run.record, run.elevation);
            convertSection(run);
        }
    }
}

// Writes the points that no vertex took; true if there are any.
bool writeUnsnappedPoints(const BreaklinePoints& points, int layer) {
    bool found = false;
    gisO_.clear();
    gisO_.point = true;
    gisN = 1;
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (points.used(i)) continue;
        gisX[0] = points[i].x;
        gisY[0] = points[i].y;
        setRecord(points[i].z, kZWidth, kZDecimals);
        gisWriteObject(layer, gisO_);
        gisWriteRecord(layer, gisO_);
        found = true;
    }
    return found;
}

void warnOf(std::string_view what, std::string_view layerName) {
    consoleLine("\nWARNING - Found ", what, ".\n          See ", layerName);
}

}  // namespace

void convertBreaklines3d(const RunSettings& settings) {
    const bool twoFiles = hasFile2(settings);
    Breaklines3d run;
    run.linesFile = twoFiles ? settings.inputFile2 : settings.inputFile1;
    consoleLine("\nConverting gis breaklines to .12da format...");
    openArchive(run.archive, settings, run.linesFile);
    run.layer = openInput(settings.inputFile1);
    const int linesLayer = twoFiles ? openInput(settings.inputFile2) : run.layer;
    const Path danglesName = checkLayerName(run.linesFile, "_dangles", run.linesFile);
    run.dangles = openCheckLayer(danglesName, "L");

    consoleLine("\nSearching for point objects...");
    readPoints(run);
    consoleLine("\nFound ", run.points.size(), " breakline points.\n");
    if (twoFiles) {
        gisCloseLayer(run.layer);
        run.layer = linesLayer;
    } else {
        gisGotoBeginningOfData(run.layer);
    }
    consoleLine("\nSearching for Lines and Polylines...\n");
    convertLines(run);
    gisCloseLayer(run.layer);
    gisCloseLayer(run.dangles);

    const Path unsnappedName =
        checkLayerName(run.linesFile, "_unsnapped_points", settings.inputFile1);
    int unsnapped = openCheckLayer(unsnappedName, "P");
    if (writeUnsnappedPoints(run.points, unsnapped)) warnOf("unsnapped points", unsnappedName);
    if (run.dangling) warnOf("dangling polylines", danglesName);
    gisCloseLayer(unsnapped);
    CLOSER(run.archive);
}

}  // namespace vantelgis
