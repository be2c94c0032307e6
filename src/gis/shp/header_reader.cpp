#include <array>

#include "gis/report.h"
#include "gis/shp/reader.h"
#include "run/byte_order.h"
#include "run/console.h"
#include "run/opener.h"

namespace vantelgis {

namespace {

// Goes back to the start; behind the header stands the first record. All zeros for a unit that is
// not above 0.
std::array<char, 100> readHeader(int unit) {
    std::array<char, 100> bytes{};
    if (unit <= 0) return bytes;
    rewindUnit(unit);
    gisRequireRead(readBytes(unit, bytes.data(), bytes.size()),
                   {"ERROR 0428 - End of .shp file encountered whilst reading header.",
                    "ERROR 0427 - Reading .shp file header."});
    return bytes;
}

}  // namespace

// Code and length have their high byte first, what follows them the low one.
void shpReadHeader(shpL_& shp) {
    const auto big = readHeader(shp.shpUnitBE);
    const auto little = readHeader(shp.shpUnit);
    consoleLine("Shapefile Code: ", fromBigEndian<std::int32_t>(big.data()),
                "  Length: ", fromBigEndian<std::int32_t>(big.data() + 24));
    consoleLine("Shapefile Version: ", fromLittleEndian<std::int32_t>(little.data() + 28),
                "  Type: ", fromLittleEndian<std::int32_t>(little.data() + 32));
    closeUnit(shp.shpUnitBE);
}

void shpRewind(shpL_& shp) {
    readHeader(shp.shpUnit);
    shp.unread = 0;
    shp.countAhead = false;
}

}  // namespace vantelgis
