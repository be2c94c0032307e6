#include "gis/layer_table.h"

#include <memory>

#include "gis/report.h"
#include "run/stop.h"

namespace vantelgis {

namespace {

// A slot is made when a layer is opened in it first: most runs open one or two.
std::unique_ptr<GisLayer> table[kMaxLayers];

std::unique_ptr<GisLayer>& slotOf(int gisID) {
    return table[gisID - 1];
}

bool inTable(int gisID) {
    return gisID >= 1 && gisID <= kMaxLayers;
}

[[noreturn]] void stopAtHandle(int gisID, std::string_view operation) {
    if (gisID > kMaxLayers) stopShouldNotBeHere(operation);
    stopWith(MessageLine("Should not be here ", operation, "[gisID=0] - please contact ",
                         SUPPORT_ADDRESS, "."));
}

}  // namespace

GisLayer& gisLayer(int gisID, std::string_view operation) {
    if (!inTable(gisID)) stopAtHandle(gisID, operation);
    std::unique_ptr<GisLayer>& slot = slotOf(gisID);
    if (!slot) slot = std::make_unique<GisLayer>();
    return *slot;
}

GisLayer& usableLayer(int gisID, std::string_view operation) {
    if (!inTable(gisID)) stopAtHandle(gisID, operation);
    GisLayer* const layer = slotOf(gisID).get();
    if (layer == nullptr || layer->kind == GisKind::none) stopShouldNotBeHere(operation);
    return *layer;
}

int takeFreeLayer() {
    for (int id = 1; id <= kMaxLayers; ++id) {
        if (slotOf(id) && slotOf(id)->kind != GisKind::none) continue;
        slotOf(id) = std::make_unique<GisLayer>();
        return id;
    }
    gisStop("ERROR 0251 - Cannot have more than 100 GIS layers open at once.");
}

void gisInitialiseLayers() {
    for (std::unique_ptr<GisLayer>& slot : table) slot.reset();
}

}  // namespace vantelgis
