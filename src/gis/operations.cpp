#include "gis/operations.h"

#include <algorithm>

#include "gis/dbf/reader.h"
#include "gis/layer_table.h"
#include "gis/mif/reader.h"
#include "gis/mif/writer.h"
#include "gis/report.h"
#include "gis/shp/reader.h"
#include "gis/shp/writer.h"
#include "run/console.h"
#include "run/stop.h"
#include "run/unit_reading.h"
#include "text/number_field.h"

namespace vantelgis {

namespace {

// Parts have to start at rising nodes; the first one starts at node 1 at the least.
void checkParts(int gisID, std::span<const std::int32_t> starts) {
    for (std::size_t i = 1; i < starts.size(); ++i) {
        const std::int32_t before = i == 1 ? std::max(starts[0], 1) : starts[i - 1];
        if (starts[i] > before) continue;
        constexpr int kColumns = 5;
        stopWith(
            MessageLine(" Should not be here [gisO_%ir(i) <= gisO_%ir(i-1)] - please contact ",
                        SUPPORT_ADDRESS, "."),
            MessageLine("GIS Layer   =", IntegerText(gisID, kColumns)),
            MessageLine("i           =", IntegerText(static_cast<std::int64_t>(i) + 1, kColumns)),
            MessageLine("gisO_%ir(i) =", IntegerText(starts[i], kColumns)),
            MessageLine("gisO_%nr    =", IntegerText(std::ssize(starts), kColumns)));
    }
}

// An object has the nodes that its kind and its parts speak of.
void checkNodes(const GisObject& object, const OutputNodes& nodes) {
    std::size_t fewest = 0;
    if (object.kind == ObjectKind::point) fewest = 1;
    if (object.kind == ObjectKind::line) fewest = 2;
    if (object.kind == ObjectKind::text) fewest = 3;
    if (!object.partStarts.empty())
        fewest = static_cast<std::size_t>(std::max(object.partStarts.back(), 1));
    if (nodes.size() < fewest) stopShouldNotBeHere("gisWriteObject");
}

}  // namespace

void gisReadHeader(int gisID) {
    GisLayer& layer = usableLayer(gisID, "gisReadHeader");
    if (layer.kind == GisKind::mif) {
        gisMifReadHeader(layer.mif);
    } else {
        shpReadHeader(layer.shp[0]);
        dbfReadHeader(layer.dbf[0]);
    }
}

void gisGotoBeginningOfData(int gisID) {
    GisLayer& layer = usableLayer(gisID, "gisGotoBeginningOfData");
    consoleLine(" Rewinding GIS Layer ", gisID, "...");
    if (layer.kind == GisKind::mif) {
        gisMifSkipToData(layer.mif.mifUnit);
        rewindUnit(layer.mif.midUnit);
    } else {
        shpRewind(layer.shp[0]);
        dbfReadHeader(layer.dbf[0]);
    }
}

bool gisObjectType(int gisID, GisObject& object) {
    GisLayer& layer = usableLayer(gisID, "gisObjectType");
    object = {};
    return layer.kind == GisKind::mif ? gisMifObjectType(layer.mif, object)
                                      : shpObjectType(layer.shp[0], object);
}

std::string_view gisReadRecord(int gisID, const GisObject& object, int nItems) {
    GisLayer& layer = usableLayer(gisID, "gisReadRecord");
    return layer.kind == GisKind::mif ? midReadRecord(layer.mif.midUnit, object)
                                      : dbfReadRecord(layer.dbf[0], nItems);
}

void gisReadObject(int gisID, const GisObject& object, ObjectNodes& nodes) {
    GisLayer& layer = usableLayer(gisID, "gisReadObject");
    nodes.centreRead = false;
    if (layer.kind == GisKind::mif) {
        gisMifReadObject(layer.mif, object, nodes);
    } else {
        shpReadObject(layer.shp[0], nodes);
    }
}

bool gisAtEnd(int gisID) {
    const GisLayer& layer = usableLayer(gisID, "gisAtEnd");
    return atEnd(layer.kind == GisKind::mif ? layer.mif.mifUnit : layer.shp[0].shpUnit);
}

void gisWriteObject(int gisID, const GisObject& object, OutputNodes& nodes, const NumberRow& row) {
    GisLayer& layer = usableLayer(gisID, "gisWriteObject");
    if (object.isLineLike() || object.kind == ObjectKind::region)
        checkParts(gisID, object.partStarts);
    checkNodes(object, nodes);
    if (layer.kind == GisKind::mif) {
        gisMifWriteObject(layer.mif, object, nodes, row.text);
    } else {
        shpWriteLayerObject(layer, object, nodes, row);
    }
}

void gisWritePoint(int gisID, const OutputNodes& nodes, std::size_t i, const NumberRow& row) {
    GisLayer& layer = usableLayer(gisID, "gisWriteObject");
    if (i >= nodes.size()) stopShouldNotBeHere("gisWriteObject");
    if (layer.kind == GisKind::mif) {
        gisMifWritePoint(layer.mif, nodes, i, row.text);
    } else {
        shpWriteLayerPoint(layer, nodes, i, row);
    }
}

}  // namespace vantelgis
