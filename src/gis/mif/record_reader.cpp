#include "gis/mif/reader.h"
#include "gis/report.h"
#include "run/unit_reading.h"

namespace vantelgis {

// Objects and records are matched by their order alone. A .mid may end without a line end, but an
// object without a line in it, even one that is passed over, means that others may be shifted.
std::string_view midReadRecord(int midUnit, const GisObject& object) {
    std::string_view line;
    if (readLine(midUnit, line) != ReadResult::ok) {
        gisStop("ERROR 0254 - Failed to read object attribute data record for a ", object.name,
                " object in GIS layer.");
    }
    return withoutTrailingBlanks(line.substr(0, Line::capacity()));
}

}  // namespace vantelgis
