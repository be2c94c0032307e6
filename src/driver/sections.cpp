#include "driver/sections.h"

#include "run/console.h"
#include "run/stop.h"

namespace vantelgis {

bool isLineLike(const GisObject& object) {
    return object.line || object.pline || object.plineMultiple;
}

std::int32_t countSections(const GisObject& object) {
    if (!object.plineMultiple) return 1;
    consoleLine("Disaggregating combined polyline into ", object.nSections, " polylines...");
    return object.nSections;
}

void tellPolyline(std::int32_t counter, std::int32_t nodes) {
    consoleText("Polyline ", counter, " with ", nodes, " nodes...");
}

void requireValue(Item item) {
    if (item == Item::end) stopEndOfFile();
    if (item == Item::bad) stopReadingData();
}

}  // namespace vantelgis
