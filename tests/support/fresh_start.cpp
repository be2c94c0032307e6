#include "support/fresh_start.h"

#include "archive/conversions.h"
#include "gis/layers.h"
#include "gis/records.h"
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
    gisInitialise(-1, {}, {}, {});
    gisMifCoordSys.clear();
    gisShpProjCS.clear();
    gisO_ = {};
    gisA_ = {};
    gisN = 0;
    gisX.assign(2, 0.0);
    gisY.assign(2, 0.0);
    includeHip = false;
    consoleReset();
}

}  // namespace vantelgis
