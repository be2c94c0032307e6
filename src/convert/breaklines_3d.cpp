#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "archive/writer.h"
#include "convert/check_layers.h"
#include "convert/conversions.h"
#include "convert/interpolation.h"
#include "convert/line_objects.h"
#include "convert/snapping.h"
#include "gis/layer_files.h"
#include "gis/layers.h"
#include "gis/operations.h"
#include "run/console.h"
#include "run/opener.h"
#include "run/run_inputs.h"
#include "run/stop.h"
#include "text/free_format.h"
#include "text/limits.h"
#include "text/number_field.h"
#include "text/paths.h"

namespace vantelgis {

namespace {

struct Breaklines3d {
    int archive = 0;
    int layer = 0;  // of the points, then of the lines
    BreaklinePoints points;
    std::int32_t counter = 0;
    float elevation = 0;  // of the polyline; an empty value keeps that of the one before
    GisObject object;
    std::string_view record;
    ObjectNodes nodes{kMaxNodes3d};
    std::vector<VertexElevation> elevations;  // of its nodes
};

void readElevation(std::string_view record, float& elevation) {
    FreeFormat list{record};
    requireValue(takeReal(list, elevation));
}

void readPoints(Breaklines3d& run) {
    float z = 0;
    while (nextObject(run.layer, run.object, run.record, 1)) {
        if (run.object.kind != ObjectKind::point) continue;
        if (run.points.size() == kMaxBreaklinePoints) {
            consoleLine("\nERROR - Exceeded maximum number of breakline points: ",
                        kMaxBreaklinePoints, "\n");
            consolePause("");
            stopRun();
        }
        gisReadObject(run.layer, run.object, run.nodes);
        readElevation(run.record, z);
        run.points.add(run.nodes.x[0], run.nodes.y[0], z);
    }
    run.points.index();
}

void writeString(const Breaklines3d& run, std::span<const VertexElevation> elevations) {
    constexpr int kNameDigits = 8;
    OutputLine line{run.archive, kLinesRoom};
    d12BeginString(line, "3d", ZeroPaddedText(run.counter, kNameDigits));
    for (std::size_t i = 0; i < elevations.size(); ++i) {
        d12AddVertex(line, run.nodes.x[i], run.nodes.y[i]);
        d12AddElevation(line, elevations[i].z);
        line.end();
    }
    d12EndString(line);
}

void convertPart(Breaklines3d& run, CheckLayer& dangles) {
    const auto x = run.nodes.xs();
    const auto y = run.nodes.ys();
    if (run.elevations.size() < x.size()) run.elevations.resize(x.size());
    const std::span elevations(run.elevations.data(), x.size());
    showPolyline(++run.counter, run.nodes.n);
    if (!snapVertices(run.points, x, y, run.elevation, elevations)) {
        consoleLine("no snapped points - using polyline elevation.");
    } else {
        consoleLine("found snapped points - interpolating.");
        if (interpolateElevations(x, y, elevations))
            dangles.addLine(run.object, run.nodes, run.elevation);
    }
    writeString(run, elevations);
}

void convertLines(Breaklines3d& run, CheckLayer& dangles) {
    while (nextObject(run.layer, run.object, run.record, 1)) {
        if (!run.object.isLineLike()) continue;
        const std::int32_t parts = countParts(run.object);
        for (std::int32_t part = 1; part <= parts; ++part) {
            gisReadObject(run.layer, run.object, run.nodes);
            if (part == 1) readElevation(run.record, run.elevation);
            convertPart(run, dangles);
        }
    }
}

void writeUnsnappedPoints(const BreaklinePoints& points, CheckLayer& unsnapped) {
    for (std::size_t i = 0; i < points.size(); ++i)
        if (!points.used(i)) unsnapped.addPoint(points[i].x, points[i].y, points[i].z);
}

// Points that an earlier run left over may be given again, under the very name of the layer that is
// made now: then it replaces them, as its user expects.
void withdrawPoints(const Path& pointsFile, const Path& layerName) {
    Path name = layerName;
    if (hasExtension(layerName, ".shp")) {
        name = gisFamilyStem(layerName, 'P');
        name += ".shp";
    }
    if (pointsFile.view() != name.view()) return;
    for (const Path& file : gisFilesOf(pointsFile)) withdrawInput(file);
}

}  // namespace

void convertBreaklines3d(const RunSettings& settings) {
    const bool twoFiles = settings.hasFile2();
    const Path& linesFile = twoFiles ? settings.inputFile2 : settings.inputFile1;
    Breaklines3d run;
    consoleLine("\nConverting gis breaklines to .12da format...");
    run.archive = createArchive(settings, linesFile);
    run.layer = openInputLayer(settings.inputFile1);
    const int linesLayer = twoFiles ? openInputLayer(settings.inputFile2) : run.layer;
    CheckLayer dangles{checkLayerName(linesFile, "_dangles", linesFile), "L"};

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
    convertLines(run, dangles);
    gisCloseLayer(run.layer);
    dangles.close();

    const Path unsnappedName = checkLayerName(linesFile, "_unsnapped_points", settings.inputFile1);
    withdrawPoints(settings.inputFile1, unsnappedName);
    CheckLayer unsnapped{unsnappedName, "P"};
    writeUnsnappedPoints(run.points, unsnapped);
    if (unsnapped.used()) unsnapped.warn("unsnapped points");
    if (dangles.used()) dangles.warn("dangling polylines");
    unsnapped.close();
    closeUnit(run.archive);
}

}  // namespace vantelgis
