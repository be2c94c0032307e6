#include <cstddef>

#include "driver/archive_output.h"
#include "driver/conversions.h"
#include "driver/sections.h"
#include "gis/layers.h"
#include "gis/operations.h"
#include "run/console.h"
#include "run/opener.h"
#include "run/unit_writing.h"
#include "text/free_format.h"

namespace vantelgis {

namespace {

constexpr std::int32_t kMaxNodes = 1000;

struct Breaklines2d {
    int archive = 0;
    int layer = 0;
    std::int32_t counter = 0;
    Line record;
    Text<100> name;  // keeps its value from one object to the next
    ObjectNodes nodes{kMaxNodes};
};

void writeNodes(int unit, const ObjectNodes& nodes) {
    for (std::size_t i = 0; i < static_cast<std::size_t>(nodes.n); ++i)
        commitLine(unit, composeNode(reserve(unit, kNodeLineRoom), nodes.x[i], nodes.y[i]));
}

void convertObject(Breaklines2d& run) {
    const std::int32_t sections = countSections(gisO_);
    for (std::int32_t section = 1; section <= sections; ++section) {
        gisReadObject(run.layer, gisO_, run.nodes);
        if (section == 1) {
            FreeFormat list{run.record};
            requireValue(takeWord(list, run.name));
        }
        tellPolyline(++run.counter, run.nodes.n);
        beginString(run.archive, "2d", run.name);
        writeNodes(run.archive, run.nodes);
        endString(run.archive);
    }
}

}  // namespace

void convertBreaklines2d(const RunSettings& settings) {
    consoleLine("\nConverting gis to .12da format...");
    Breaklines2d run;
    openArchive(run.archive, settings, settings.inputFile1);
    run.layer = gisOpenLayer(settings.inputFile1, {}, "I ");
    gisReadHeader(run.layer);
    consoleLine("\nSearching for Lines and Polylines...\n");
    while (!gisAtEnd(run.layer)) {
        if (!gisObjectType(run.layer, gisO_)) continue;
        gisReadRecord(run.layer, gisO_, run.record);
        if (isLineLike(gisO_)) convertObject(run);
    }
    CLOSER(run.archive);
    gisCloseLayer(run.layer);
}

}  // namespace vantelgis
