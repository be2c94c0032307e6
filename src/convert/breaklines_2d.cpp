#include <cstddef>
#include <string_view>

#include "archive/writer.h"
#include "convert/conversions.h"
#include "convert/line_objects.h"
#include "gis/layers.h"
#include "gis/operations.h"
#include "run/console.h"
#include "run/opener.h"
#include "text/free_format.h"
#include "text/limits.h"

namespace vantelgis {

namespace {

struct Breaklines2d {
    int archive = 0;
    int layer = 0;
    std::int32_t counter = 0;
    std::string_view record;  // of the object
    Text<100> name;           // keeps its value from one object to the next
    ObjectNodes nodes{kMaxNodes2d};
};

void writeString(const Breaklines2d& run) {
    OutputLine line{run.archive, kLinesRoom};
    d12BeginString(line, "2d", run.name);
    for (std::size_t i = 0; i < run.nodes.size(); ++i) {
        d12AddVertex(line, run.nodes.x[i], run.nodes.y[i]);
        line.end();
    }
    d12EndString(line);
}

void convertObject(Breaklines2d& run, const GisObject& object) {
    const std::int32_t parts = countParts(object);
    for (std::int32_t part = 1; part <= parts; ++part) {
        gisReadObject(run.layer, object, run.nodes);
        if (part == 1) {
            FreeFormat list{run.record};
            requireValue(takeWord(list, run.name));
        }
        showPolyline(++run.counter, run.nodes.n);
        writeString(run);
    }
}

}  // namespace

void convertBreaklines2d(const RunSettings& settings) {
    consoleLine("\nConverting gis to .12da format...");
    Breaklines2d run;
    run.archive = createArchive(settings, settings.inputFile1);
    run.layer = openInputLayer(settings.inputFile1);
    consoleLine("\nSearching for Lines and Polylines...\n");
    GisObject object;
    while (nextObject(run.layer, object, run.record, 1))
        if (object.isLineLike()) convertObject(run, object);
    closeUnit(run.archive);
    gisCloseLayer(run.layer);
}

}  // namespace vantelgis
