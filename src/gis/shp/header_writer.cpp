#include <cstddef>

#include "gis/dbf/writer.h"
#include "gis/report.h"
#include "gis/shp/writer.h"
#include "run/unit_writing.h"

namespace vantelgis {

Line gisShpProjCS;

namespace {

// The .prj is finished before the first object, so that a run which fails later leaves it whole.
void writeProjection(shpL_& shp) {
    putLine(shp.prjUnit, gisShpProjCS);
    if (!flushUnit(shp.prjUnit)) gisStop(kShpHeaderFailure);
    gisCloseFile(shp.prjUnit, kShpHeaderFailure);
}

// The smallest box there is: any object widens it. Its numbers are those of 32-bit floats.
void startBox(shpL_& shp) {
    constexpr float kFar = 9.0E29F;
    shp.xMin = shp.yMin = double{kFar};
    shp.xMax = shp.yMax = -double{kFar};
}

}  // namespace

void shpWriteHeader(shpL_& shp, int unit, int twin) {
    if (unit <= 0 || twin <= 0) stopShouldNotBeHere("shpnotopen");
    if (!emptyUnit(unit)) gisStop(kShpHeaderFailure);
    char* out = reserve(unit, 2 * kShpHeaderWords);
    out = placeBig(out, std::int32_t{9994});  // by which every shapefile is known
    out = placeZeros(out, 20);
    out = placeBig(out, kShpHeaderWords);
    out = placeLittle(out, std::int32_t{1000});  // the version
    out = placeLittle(out, shp.shapeType);
    out = placeLittle(out, shp.xMin);
    out = placeLittle(out, shp.yMin);
    out = placeLittle(out, shp.xMax);
    out = placeLittle(out, shp.yMax);
    out = placeZeros(out, 32);  // the ranges of Z and M
    commit(unit, out);
    if (!flushUnit(unit)) gisStop(kShpHeaderFailure);
}

void shpWriteLayerHeaders(GisLayer& layer, FieldDefinitions fields) {
    for (std::size_t k = 0; k < kFamilies; ++k) {
        shpL_& shp = layer.shp[k];
        if (shp.shpUnit <= 0) continue;
        writeProjection(shp);
        shpWriteHeader(shp, shp.shpUnit, shp.shpUnitBE);
        shpWriteHeader(shp, shp.shxUnitBE, shp.shxUnit);
        gisCloseFile(shp.shxUnit, kShpHeaderFailure);
        shp.offset = kShpHeaderWords;
        startBox(shp);
        dbfWriteHeader(fields, layer.dbf[k]);
        layer.dbf[k].recordNo = 0;
    }
}

}  // namespace vantelgis
