#include "gis/dbf/writer.h"
#include "gis/report.h"
#include "gis/shp/writer.h"

namespace vantelgis {

namespace {

enum Family : std::size_t { kPoints, kLines, kRegions };

// The set that takes an object which has a geometry. `operation` names the caller.
Family familyOf(const GisObject& object, std::string_view operation) {
    if (object.point || object.text || object.multiPoint) return kPoints;
    if (object.line || object.pline || object.plineMultiple) return kLines;
    if (object.region) return kRegions;
    gisStop("Should not be here [", operation, "].  Please contact ", SUPPORT_ADDRESS, ".");
}

}  // namespace

void shpWriteLayerObject(GisLayer& layer, GisObject& object) {
    if (object.none) {
        for (std::size_t k = 0; k < kFamilies; ++k)
            if (layer.dbf[k].dbfUnit > 0) shpWriteObject(object, layer.shp[k]);
        return;
    }
    const Family family = familyOf(object, "gisWriteObject-shp");
    if (object.text) {
        object.text = false;
        object.point = true;
    }
    shpWriteObject(object, layer.shp[family]);
}

void shpWriteLayerRecord(GisLayer& layer, const GisObject& object) {
    if (!object.none) {
        dbfWriteRecord(layer.dbf[familyOf(object, "gisWriteRecord-dbf")]);
        return;
    }
    for (dbfL_& dbf : layer.dbf)
        if (dbf.dbfUnit > 0) dbfWriteRecord(dbf);
}

}  // namespace vantelgis
