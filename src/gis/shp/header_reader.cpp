#include "gis/report.h"
#include "gis/shp/reader.h"
#include "run/console.h"
#include "run/opener.h"
#include "run/unit_reading.h"

namespace vantelgis {

namespace {

void requireBytes(ReadResult result) {
    if (result == ReadResult::end)
        gisStop("ERROR 0428 - End of .shp file encountered whilst reading header.");
    if (result == ReadResult::failed) gisStop("ERROR 0427 - Reading .shp file header.");
}

}  // namespace

ShpHeader shpReadHeader(int unit) {
    ShpHeader header;
    if (unit <= 0) return header;
    rewindUnit(unit);
    char bytes[100];
    requireBytes(readBytes(unit, bytes, sizeof bytes));
    const bool big = fileOf(unit).mode->content == Content::bigEndianBytes;
    const std::endian order = big ? std::endian::big : std::endian::little;
    header.code = valueOf<std::int32_t>(bytes, order);
    header.length = valueOf<std::int32_t>(bytes + 24, order);
    header.version = valueOf<std::int32_t>(bytes + 28, order);
    header.type = valueOf<std::int32_t>(bytes + 32, order);
    header.xMin = valueOf<double>(bytes + 36, order);
    header.yMin = valueOf<double>(bytes + 44, order);
    header.xMax = valueOf<double>(bytes + 52, order);
    header.yMax = valueOf<double>(bytes + 60, order);
    return header;
}

void shpReadLayerHeader(shpL_& shp) {
    const ShpHeader big = shpReadHeader(shp.shpUnitBE);
    const ShpHeader little = shpReadHeader(shp.shpUnit);
    shp.fileCode = big.code;
    shp.fileLength = big.length;
    shp.version = little.version;
    shp.shapeType = little.type;
    shp.xMin = little.xMin;
    shp.yMin = little.yMin;
    shp.xMax = little.xMax;
    shp.yMax = little.yMax;
    consoleLine("Shapefile Code: ", shp.fileCode, "  Length: ", shp.fileLength);
    consoleLine("Shapefile Version: ", shp.version, "  Type: ", shp.shapeType);
    closeUnit(shp.shpUnitBE);
}

void shpRewind(shpL_& shp) {
    shpReadHeader(shp.shpUnit);
    shp.unread = 0;
    shp.countAhead = false;
    shp.nParts = shp.nextPart = 0;
}

}  // namespace vantelgis
