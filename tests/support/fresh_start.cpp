#include "support/fresh_start.h"

#include "convert/conversions.h"
#include "gis/layers.h"
#include "gis/mif/writer.h"
#include "gis/shp/writer.h"
#include "run/console.h"
#include "run/messages.h"
#include "run/stop.h"
#include "run/units.h"

namespace vantelgis {

void freshStart() {
    setEndHandler([] { throw ProcessEnd{}; });
    initialiseUnits(1000);
    clearMessage();
    resetMessageCounters();
    gisInitialise();
    gisMifCoordSys.clear();
    gisShpProjCS.clear();
    includeHip = false;
    consoleReset();
}

}  // namespace vantelgis
