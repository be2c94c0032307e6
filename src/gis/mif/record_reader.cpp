#include "gis/mif/reader.h"
#include "gis/report.h"
#include "run/unit_reading.h"

namespace vantelgis {

// Objects and records are matched by their order alone. A .mid may end without a line end, but an
// object without a line in it, even one that is passed over, means that others may be shifted.
void midReadRecord(int midUnit, const GisObject& object, TextRef record) {
    std::string_view line;
    if (readLine(midUnit, line) != ReadResult::ok) {
        gisStop("ERROR 0254 - Failed to read object attribute data record for a ", object.name,
                " object in GIS layer.");
    }
    record.assign(line);
}

}  // namespace vantelgis
