#include "support/fresh_start.h"

#include "archive/conversions.h"
#include "gis/layers.h"
#include "gis/records.h"
#include "run/console.h"
#include "run/messages.h"
#include "run/stop.h"
#include "run/units.h"

namespace vantelgis {

// Stands in for the routine of that name in the program.
void endProcess() {
    throw ProcessEnd{};
}

void freshStart() {
    FILESINIT(1000);
    DMESSAGECLEAR();
    DMESSAGERESETCOUNTERS();
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
