#include "convert/line_objects.h"

#include "archive/writer.h"
#include "gis/layers.h"
#include "gis/operations.h"
#include "run/console.h"
#include "run/stop.h"
#include "text/joined.h"
#include "text/strings.h"

namespace vantelgis {

int createArchive(const RunSettings& settings, std::string_view sourceFile) {
    Path name;
    if (settings.haveModel) {
        keepAlphanumerics(name, settings.modelName, ' ');
        return d12CreateArchive(settings.outputFile, name);
    }
    keepAlphanumerics(name, withoutExtension(sourceFile), ' ');
    return d12CreateArchive(settings.outputFile, Joined<1024>("from ", name, " gis"));
}

int openInputLayer(std::string_view name) {
    const int layer = gisOpenLayer(name);
    gisReadHeader(layer);
    return layer;
}

bool nextObject(int layer, GisObject& object, std::string_view& record, int nItems) {
    while (!gisAtEnd(layer)) {
        if (!gisObjectType(layer, object)) continue;
        record = gisReadRecord(layer, object, nItems);
        return true;
    }
    return false;
}

std::int32_t countParts(const GisObject& object) {
    if (object.kind != ObjectKind::multiPolyline) return 1;
    consoleLine("Disaggregating combined polyline into ", object.nParts, " polylines...");
    return object.nParts;
}

// There may be as many as a quarter of the vertices: the line is put in one piece.
void showPolyline(std::int32_t counter, std::int32_t nodes) {
    consolePut(Joined<64>("Polyline ", counter, " with ", nodes, " nodes..."));
}

void requireValue(Item item) {
    if (item == Item::end) stopEndOfFile();
    if (item == Item::bad) stopReadingData();
}

}  // namespace vantelgis
