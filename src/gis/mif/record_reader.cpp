#include "gis/mif/reader.h"
#include "gis/report.h"
#include "run/unit_reading.h"

namespace vantelgis {

void midReadRecord(int midUnit, const GisObject& object, TextRef record) {
    std::string_view line;
    if (readLine(midUnit, line) != ReadResult::ok) {
        gisStop("ERROR 0254 - Failed to read object attribute data record for a ", object.name,
                " object in GIS layer.");
    }
    record.assign(line);
}

}  // namespace vantelgis
