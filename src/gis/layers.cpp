#include "gis/layers.h"

#include "gis/dbf/writer.h"
#include "gis/mif/files.h"
#include "gis/records.h"
#include "gis/report.h"
#include "gis/shp/files.h"
#include "gis/shp/writer.h"
#include "run/console.h"
#include "run/stop.h"
#include "text/paths.h"
#include "text/strings.h"

namespace vantelgis {

namespace {

int firstFreeSlot() {
    for (int id = 1; id <= kMaxLayers; ++id)
        if (!gisLayer(id).open) return id;
    gisStop("ERROR 0251 - Cannot have more than 100 GIS layers open at once.");
}

GisKind gisFormatKind(std::string_view extension) {
    if (extension == ".mif" || extension == ".mid" || extension.empty()) return GisKind::mif;
    if (extension == ".shp") return GisKind::shp;
    gisStop("ERROR 0252 - ", extension, " is not a supported GIS file format.");
}

bool isOutput(std::string_view mode) {
    if (mode == "I ") return false;
    if (mode == "O ") return true;
    stopShouldNotBeHere("OpenGIS");
}

// The files of a MapInfo layer are complete as they stand; all that is left is to hand them over.
void closeMif(mifL_& mif) {
    gisCloseFile(mif.mifUnit, "ERROR 0439 - Writing .mif file object coordinates.");
    gisCloseFile(mif.midUnit,
                 MessageLine("ERROR 0254 - Failed to write attribute data record for a ",
                             gisO_.objName, " object in GIS layer."));
}

// The last part of writing a layer, with what only the end of a run can know.
void gisWriteEoF(int gisID) {
    if (gisID < 1) {
        consoleLine("Should not be here gisWriteEoF[gisID=0] - please contact ", SUPPORT_ADDRESS,
                    ".");
        EXITS();
    }
    GisLayer& layer = gisLayer(gisID);
    if (layer.kind == GisKind::shp) shpFinishLayer(layer);
}

}  // namespace

void gisInitialise(int /*logUnit*/, std::string_view /*title*/, std::string_view /*workspaceName*/,
                   std::string_view /*inputLayersName*/) {
    gisDataLine.clear();
    gisSetMessage({});
    dbfForgetItems();
    for (int id = 1; id <= kMaxLayers; ++id) {
        const GisLayer& layer = gisLayer(id);
        const bool untouched = layer.kind == GisKind::none && layer.name.blank();
        if (!untouched) gisInitialiseLayer(id);
        gisLayer(id).open = false;
    }
}

int gisOpenLayer(std::string_view name, std::string_view shapeFamilies, std::string_view mode) {
    consoleLine("Opening GIS Layer: ", withoutTrailingBlanks(name));
    const int gisID = firstFreeSlot();
    consoleLine("GIS Layer assigned ID of ", gisID);
    gisInitialiseLayer(gisID);

    GisLayer& layer = gisLayer(gisID);
    Text<16> extension;
    FILEEXT(extension, name);
    layer.kind = gisFormatKind(extension);
    layer.writing = isOutput(mode);
    switch (layer.kind) {
        case GisKind::mif: gisMifOpen(name, mode, layer.mif); break;
        case GisKind::shp:
            if (layer.writing) {
                shpOpenFamilies(name, shapeFamilies, layer);
            } else {
                OpenshpFile(name, shapeFamilies, mode, layer.shp[0], layer.dbf[0]);
            }
            break;
        default: stopShouldNotBeHere("gisOpenLayer");
    }
    layer.open = true;
    layer.name = name;
    return gisID;
}

void gisInitialiseLayer(int gisID) {
    if (gisID < 1) {
        consoleLine("Should not be here gisInitialiseLayer[gisID=0] - please contact ",
                    SUPPORT_ADDRESS, ".");
        EXITS();
    }
    GisLayer& layer = gisLayer(gisID);
    layer.kind = GisKind::none;
    layer.name.clear();
    layer.atEnd = layer.writing = false;
    layer.mif.line.clear();
    layer.mif.rest.clear();
    layer.mif.mifUnit = layer.mif.midUnit = layer.mif.nAttr = 0;
    for (auto& name : layer.mif.attrName) name.clear();
    for (auto& type : layer.mif.attrType) type.clear();
    for (shpL_& shp : layer.shp) shp = {};
    for (dbfL_& dbf : layer.dbf) dbf = {};
}

void gisCloseLayer(int& gisID) {
    if (gisID < 1) {
        consoleLine(
            "SOFTWARE CHECK - Trying to close a GIS Layer that's not open.  Please contact ",
            SUPPORT_ADDRESS, ".");
        return;
    }
    GisLayer& layer = gisLayer(gisID);
    consoleLine(" Closing GIS Layer ", gisID, " [", layer.name, "]...");
    if (layer.writing) gisWriteEoF(gisID);
    switch (layer.kind) {
        case GisKind::mif: closeMif(layer.mif); break;
        case GisKind::shp: shpCloseFiles(layer); break;
        default: stopShouldNotBeHere("gisCloseLayer");
    }
    layer.open = layer.writing = false;
    layer.atEnd = true;
    layer.kind = GisKind::none;
    gisID = 0;
}

}  // namespace vantelgis
