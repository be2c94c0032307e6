#include "gis/dbf/writer.h"
#include "gis/report.h"
#include "gis/shp/writer.h"
#include "run/unit_writing.h"

namespace vantelgis {

namespace {

// Puts the length of the file, in 16-bit words, and the box of all objects into a main header.
void finishHeader(int unit, std::int32_t fileWords, const shpL_& shp) {
    constexpr std::int64_t kLengthOffset = 24;
    constexpr std::int64_t kBoxOffset = 36;
    if (!flushUnit(unit)) gisStop(kShpObjectFailure);
    const auto length = bytesOf(fileWords, std::endian::big);
    char box[32];
    char* out = placeLittle(box, shp.xMin);
    out = placeLittle(out, shp.yMin);
    out = placeLittle(out, shp.xMax);
    placeLittle(out, shp.yMax);
    if (!patchBytes(unit, kLengthOffset, {length.data(), length.size()}) ||
        !patchBytes(unit, kBoxOffset, {box, sizeof box}))
        gisStop(kFinishFailure);
}

// A set that got no object keeps the header with which it was made: its box ends before it begins,
// by which readers see that there is nothing.
void finishSet(shpL_& shp, dbfL_& dbf) {
    constexpr std::int32_t kShxRecordWords = 4;  // offset and length
    if (dbf.dbfUnit > 0) dbfFinish(dbf);
    if (shp.nObjects < 1) return;
    if (shp.shpUnit > 0) {
        finishHeader(shp.shpUnit, shp.offset, shp);
        gisCloseFile(shp.shpUnit, kFinishFailure);
        gisCloseFile(shp.shpUnitBE, kFinishFailure);
    }
    if (shp.shxUnitBE > 0) {
        finishHeader(shp.shxUnitBE, shp.nObjects * kShxRecordWords + kShpHeaderWords, shp);
        gisCloseFile(shp.shxUnitBE, kFinishFailure);
    }
}

}  // namespace

void shpFinishLayer(GisLayer& layer) {
    for (std::size_t k = 0; k < kFamilies; ++k) finishSet(layer.shp[k], layer.dbf[k]);
}

}  // namespace vantelgis
