#include "gis/operations.h"

#include "gis/dbf/reader.h"
#include "gis/measures.h"
#include "gis/mif/reader.h"
#include "gis/mif/writer.h"
#include "gis/report.h"
#include "gis/shp/reader.h"
#include "gis/shp/writer.h"
#include "run/console.h"
#include "run/stop.h"
#include "run/unit_reading.h"
#include "run/unit_writing.h"

namespace vantelgis {

namespace {

// The layer of a handle, with a kind that has files.
GisLayer& usableLayer(int gisID, std::string_view operation) {
    if (gisID < 1) {
        consoleLine("Should not be here ", operation, "[gisID=0] - please contact ",
                    SUPPORT_ADDRESS, ".");
        EXITS();
    }
    if (gisID > kMaxLayers) stopShouldNotBeHere(operation);
    GisLayer& layer = gisLayer(gisID);
    if (layer.kind == GisKind::none) stopShouldNotBeHere(operation);
    return layer;
}

[[noreturn]] void stopAboutRecord(std::string_view failure, const GisObject& object) {
    gisStop("ERROR 0254 - Failed to ", failure, " data record for a ", object.objName,
            " object in GIS layer.");
}

void readMidRecord(const mifL_& mif, const GisObject& object, TextRef record) {
    std::string_view line;
    if (readLine(mif.midUnit, line) != ReadResult::ok)
        stopAboutRecord("read object attribute", object);
    record.assign(line);
}

void numberedLine(std::string_view label, std::int32_t value) {
    constexpr int kColumns = 5;
    char columns[kColumns];
    integerField(columns, value, kColumns);
    consoleLine(label, std::string_view(columns, kColumns));
}

void readDbfRecord(GisLayer& layer, TextRef record) {
    bool endMark = false;
    dbfReadRecord(layer.dbf[0], endMark, record);
    layer.atEnd = endMark || atEnd(layer.dbf[0].dbfUnit);
}

void readDbfHeader(dbfL_& dbf) {
    dbfReadHeader(dbf);
    dbf.recordNo = 0;
}

// Parts have to start at rising nodes.
void checkParts(int gisID, GisObject& object) {
    if (object.nr < 1) object.nr = 1;
    if (object.ir[0] < 1) object.ir[0] = 1;
    for (std::int32_t i = 2; i <= object.nr; ++i) {
        const auto index = static_cast<std::size_t>(i) - 1;
        if (object.ir[index] > object.ir[index - 1]) continue;
        consoleLine(" Should not be here [gisO_%ir(i) <= gisO_%ir(i-1)] - please contact ",
                    SUPPORT_ADDRESS, ".");
        numberedLine("GIS Layer   =", gisID);
        numberedLine("i           =", i);
        numberedLine("gisO_%ir(i) =", object.ir[index]);
        numberedLine("gisO_%nr    =", object.nr);
        EXITS();
    }
}

}  // namespace

void gisReadHeader(int gisID) {
    GisLayer& layer = usableLayer(gisID, "gisReadHeader");
    switch (layer.kind) {
        case GisKind::mif: gisMifReadHeader(layer.mif); break;
        case GisKind::shp:
            shpReadLayerHeader(layer.shp[0]);
            readDbfHeader(layer.dbf[0]);
            break;
        default: stopShouldNotBeHere("gisReadHeader");
    }
}

void gisGotoBeginningOfData(int gisID) {
    GisLayer& layer = usableLayer(gisID, "gisGotoBeginningOfData");
    consoleLine(" Rewinding GIS Layer ", gisID, "...");
    layer.atEnd = false;
    switch (layer.kind) {
        case GisKind::mif:
            gisMifSkipToData(layer.mif.mifUnit);
            rewindUnit(layer.mif.midUnit);
            break;
        case GisKind::shp:
            shpRewind(layer.shp[0]);
            readDbfHeader(layer.dbf[0]);
            break;
        default: stopShouldNotBeHere("gisGotoBeginningOfData");
    }
}

bool gisObjectType(int gisID, GisObject& object) {
    GisLayer& layer = usableLayer(gisID, "gisObjectType");
    object.clear();
    bool found = false;
    switch (layer.kind) {
        case GisKind::mif:
            found = gisMifObjectType(layer.mif.mifUnit, layer.mif.line, layer.mif.rest, object);
            layer.atEnd = atEnd(layer.mif.mifUnit);
            break;
        case GisKind::shp:
            found = shpObjectType(layer.shp[0], object);
            layer.atEnd = atEnd(layer.shp[0].shpUnit);
            break;
        default: stopShouldNotBeHere("gisObjectType");
    }
    return found;
}

void gisReadRecord(int gisID, const GisObject& object, TextRef record) {
    GisLayer& layer = usableLayer(gisID, "gisReadRecord");
    record.clear();
    switch (layer.kind) {
        case GisKind::mif:
            readMidRecord(layer.mif, object, record);
            layer.atEnd = atEnd(layer.mif.midUnit);
            break;
        case GisKind::shp: readDbfRecord(layer, record); break;
        default: stopShouldNotBeHere("gisReadRecord");
    }
}

void gisReadObject(int gisID, GisObject& object, ObjectNodes& nodes) {
    GisLayer& layer = usableLayer(gisID, "gisReadObject");
    bool noCentreSeen = true;
    switch (layer.kind) {
        case GisKind::mif:
            gisMifReadObject(layer.mif.mifUnit, layer.mif.rest, object, nodes, noCentreSeen);
            layer.atEnd = atEnd(layer.mif.mifUnit);
            break;
        case GisKind::shp:
            shpReadObject(layer.shp[0], object, nodes);
            layer.atEnd = atEnd(layer.shp[0].shpUnit);
            break;
        default: stopShouldNotBeHere("gisReadObject");
    }
    measureObject(object, nodes, noCentreSeen);
}

void gisWriteHeader(int gisID) {
    GisLayer& layer = usableLayer(gisID, "gisWriteHeader");
    switch (layer.kind) {
        case GisKind::mif: gisMifWriteHeader(gisA_, layer.mif.mifUnit); break;
        case GisKind::shp: shpWriteLayerHeaders(layer); break;
        default: stopShouldNotBeHere("gisWriteHeader");
    }
}

void gisWriteObject(int gisID, GisObject& object) {
    GisLayer& layer = usableLayer(gisID, "gisWriteObject");
    if (object.line || object.pline || object.plineMultiple || object.region)
        checkParts(gisID, object);
    switch (layer.kind) {
        case GisKind::mif: gisMifWriteObject(object, layer.mif.mifUnit); break;
        case GisKind::shp: shpWriteLayerObject(layer, object); break;
        default: stopShouldNotBeHere("gisWriteObject");
    }
}

void gisWritePointAtNode(int gisID, std::int32_t node) {
    GisLayer& layer = usableLayer(gisID, "gisWriteObject");
    switch (layer.kind) {
        case GisKind::mif: gisMifWritePointAtNode(node, layer.mif.mifUnit); break;
        case GisKind::shp: shpWritePointAtNode(node, layer.shp[0]); break;
        default: stopShouldNotBeHere("gisWriteObject");
    }
}

void gisWriteRecord(int gisID, const GisObject& object) {
    GisLayer& layer = usableLayer(gisID, "gisWriteRecord");
    switch (layer.kind) {
        case GisKind::mif:
            putLine(layer.mif.midUnit, gisDataLine);
            if (writeFailed(layer.mif.midUnit)) stopAboutRecord("write attribute", object);
            break;
        case GisKind::shp: shpWriteLayerRecord(layer, object); break;
        default: stopShouldNotBeHere("gisWriteRecord");
    }
}

bool gisAtEnd(int gisID) {
    return gisLayer(gisID).atEnd;
}

}  // namespace vantelgis
