#include "gis/layer_table.h"

#include "gis/report.h"
#include "run/stop.h"

namespace vantelgis {

// A slot is made when a layer is opened in it first: most runs open one or two.
std::unique_ptr<GisLayer> layerSlots[kMaxLayers];

namespace {

std::unique_ptr<GisLayer>& slotOf(int gisID) {
    return layerSlots[gisID - 1];
}

}  // namespace

void stopAtHandle(int gisID, std::string_view operation) {
    if (gisID >= 1) stopShouldNotBeHere(operation);
    stopWith(MessageLine("Should not be here ", operation, "[gisID=0] - please contact ",
                         SUPPORT_ADDRESS, "."));
}

GisLayer& gisLayer(int gisID, std::string_view operation) {
    if (gisID < 1 || gisID > kMaxLayers) stopAtHandle(gisID, operation);
    std::unique_ptr<GisLayer>& slot = slotOf(gisID);
    if (!slot) slot = std::make_unique<GisLayer>();
    return *slot;
}

int takeFreeLayer() {
    for (int id = 1; id <= kMaxLayers; ++id) {
        if (slotOf(id) && slotOf(id)->kind != GisKind::none) continue;
        slotOf(id) = std::make_unique<GisLayer>();
        return id;
    }
    gisStop("ERROR 0251 - Cannot have more than ", kMaxLayers, " GIS layers open at once.");
}

void gisInitialiseLayers() {
    for (std::unique_ptr<GisLayer>& slot : layerSlots) slot.reset();
}

}  // namespace vantelgis
