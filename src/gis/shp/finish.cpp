#include "gis/dbf/writer.h"
#include "gis/report.h"
#include "gis/shp/writer.h"
#include "run/unit_writing.h"

namespace vantelgis {

namespace {

// One message serves for the headers of all files.
constexpr std::string_view kFailure =
    "ERROR 0413 - Rewriting .dbf file header with final information.";

// Puts the length of the file, in 16-bit words, and the box of all objects into a main header.
void finishHeader(int unit, std::int32_t fileWords, const shpL_& shp) {
    constexpr std::int64_t kLengthOffset = 24;
    constexpr std::int64_t kBoxOffset = 36;
    if (!flushUnit(unit)) gisStop("ERROR 0439 - Writing .shp file object coordinates.");
    const auto length = bytesOf(fileWords, std::endian::big);
    char box[32];
    char* out = placeLittle(box, shp.xMin);
    out = placeLittle(out, shp.yMin);
    out = placeLittle(out, shp.xMax);
    placeLittle(out, shp.yMax);
    if (!patchBytes(unit, kLengthOffset, {length.data(), length.size()}) ||
        !patchBytes(unit, kBoxOffset, {box, sizeof box}))
        gisStop(kFailure);
}

// A set that got no object keeps the header with which it was made: its box ends before it begins,
// by which readers see that there is nothing.
void finishSet(shpL_& shp, dbfL_& dbf) {
    constexpr std::int32_t kHeaderWords = 50;    // 100 bytes
    constexpr std::int32_t kShxRecordWords = 4;  // offset and length
    if (dbf.dbfUnit > 0) dbfFinish(dbf);
    if (shp.nObjects < 1) return;
    if (shp.shpUnit > 0) {
        finishHeader(shp.shpUnit, shp.offset, shp);
        gisCloseFile(shp.shpUnit, kFailure);
        gisCloseFile(shp.shpUnitBE, kFailure);
    }
    if (shp.shxUnitBE > 0) {
        finishHeader(shp.shxUnitBE, shp.nObjects * kShxRecordWords + kHeaderWords, shp);
        gisCloseFile(shp.shxUnitBE, kFailure);
    }
}

}  // namespace

void shpFinishLayer(GisLayer& layer) {
    for (std::size_t k = 0; k < kFamilies; ++k) finishSet(layer.shp[k], layer.dbf[k]);
}

}  // namespace vantelgis
