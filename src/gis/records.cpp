#include "gis/records.h"

#include <cstddef>

namespace vantelgis {

GisObject gisO_;
GisAttributes gisA_;
std::int32_t gisN = 0;
std::vector<double> gisX(2);
std::vector<double> gisY(2);
Text<1000> gisDataLine;
Text<1000> gisMifCoordSys;
Text<1000> gisShpProjCS;

GisLayer& gisLayer(int gisID) {
    static GisLayer table[kMaxLayers];  // gisL_
    return table[gisID - 1];
}

void GisObject::clear() {
    none = point = line = pline = plineMultiple = region = false;
    ellipse = rect = roundRect = arc = center = text = multiPoint = false;
    nSections = nr = ir[0] = 1;
    objName.clear();
}

bool GisObject::found() const {
    return none || point || line || pline || plineMultiple || region || ellipse || rect ||
           roundRect || arc || text || multiPoint;
}

void gisReserveNodes(std::int32_t n) {
    const auto size = static_cast<std::size_t>(n);
    if (gisX.size() >= size) return;
    gisX.resize(size);
    gisY.resize(size);
}

}  // namespace vantelgis
