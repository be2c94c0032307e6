#include "gis/layers.h"

#include "gis/dbf/writer.h"
#include "gis/layer_table.h"
#include "gis/mif/files.h"
#include "gis/mif/writer.h"
#include "gis/report.h"
#include "gis/shp/files.h"
#include "gis/shp/writer.h"
#include "run/console.h"
#include "run/stop.h"
#include "text/paths.h"
#include "text/strings.h"

namespace vantelgis {

namespace {

GisKind formatOf(std::string_view name) {
    const std::string_view extension = extensionOf(name);
    if (extension.empty() || hasExtension(name, ".mif") || hasExtension(name, ".mid"))
        return GisKind::mif;
    if (hasExtension(name, ".shp")) return GisKind::shp;
    Path lower;
    lowerCase(lower, extension);
    gisStop("ERROR 0252 - ", lower, " is not a supported GIS file format.");
}

// A slot for the layer, of the format that its name has.
int takeSlot(std::string_view name) {
    consoleLine("Opening GIS Layer: ", withoutTrailingBlanks(name));
    const int gisID = takeFreeLayer();
    consoleLine("GIS Layer assigned ID of ", gisID);
    GisLayer& layer = gisLayer(gisID);
    layer.kind = formatOf(name);
    layer.name = name;
    return gisID;
}

}  // namespace

void gisInitialise() {
    dbfForgetItems();
    gisInitialiseLayers();
}

int gisOpenLayer(std::string_view name) {
    const int gisID = takeSlot(name);
    GisLayer& layer = gisLayer(gisID);
    if (layer.kind == GisKind::mif) {
        gisMifOpen(name, "I ", layer.mif);
    } else {
        shpOpenInput(name, layer.shp[0], layer.dbf[0]);
    }
    return gisID;
}

int gisCreateLayer(std::string_view name, std::string_view shapeFamilies, FieldDefinitions fields) {
    const int gisID = takeSlot(name);
    GisLayer& layer = gisLayer(gisID);
    layer.writing = true;
    if (layer.kind == GisKind::mif) {
        gisMifOpen(name, "O ", layer.mif);
        gisMifWriteHeader(fields, layer.mif.mifUnit);
    } else {
        shpOpenFamilies(name, shapeFamilies, layer);
        shpWriteLayerHeaders(layer, fields);
    }
    return gisID;
}

void gisCloseLayer(int& gisID) {
    if (gisID < 1) {
        consoleLine(
            "SOFTWARE CHECK - Trying to close a GIS Layer that's not open.  Please contact ",
            SUPPORT_ADDRESS, ".");
        return;
    }
    GisLayer& layer = gisLayer(gisID, "gisCloseLayer");
    consoleLine(" Closing GIS Layer ", gisID, " [", layer.name, "]...");
    static_cast<void>(usableLayer(gisID, "gisCloseLayer"));
    if (layer.kind == GisKind::mif) {
        gisMifClose(layer.mif);
    } else {
        if (layer.writing) shpFinishLayer(layer);
        shpCloseFiles(layer);
    }
    layer.writing = false;
    layer.kind = GisKind::none;
    gisID = 0;
}

}  // namespace vantelgis
