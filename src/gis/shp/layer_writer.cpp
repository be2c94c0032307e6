#include "gis/dbf/writer.h"
#include "gis/report.h"
#include "gis/shp/writer.h"

namespace vantelgis {

namespace {

// The set that takes an object which has a geometry.
ShapeFamily familyOf(const GisObject& object) {
    if (object.isLineLike()) return kLines;
    switch (object.kind) {
        case ObjectKind::point:
        case ObjectKind::text:
        case ObjectKind::multiPoint: return kPoints;
        case ObjectKind::region: return kRegions;
        default:
            gisStop("Should not be here [gisWriteObject-shp].  Please contact ", SUPPORT_ADDRESS,
                    ".");
    }
}

}  // namespace

void shpWriteLayerObject(GisLayer& layer, const GisObject& object, const OutputNodes& nodes,
                         const NumberRow& row) {
    if (object.kind != ObjectKind::none) {
        const ShapeFamily family = familyOf(object);
        shpWriteObject(object, nodes, layer.shp[family]);
        dbfWriteRecord(row, layer.dbf[family]);
        return;
    }
    for (std::size_t k = 0; k < kFamilies; ++k) {
        if (layer.dbf[k].dbfUnit <= 0) continue;
        shpWriteObject(object, nodes, layer.shp[k]);
        dbfWriteRecord(row, layer.dbf[k]);
    }
}

void shpWriteLayerPoint(GisLayer& layer, const OutputNodes& nodes, std::size_t i,
                        const NumberRow& row) {
    shpWritePoint(nodes.x()[i], nodes.y()[i], layer.shp[kPoints]);
    dbfWriteRecord(row, layer.dbf[kPoints]);
}

}  // namespace vantelgis
