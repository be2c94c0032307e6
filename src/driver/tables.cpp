#include "driver/tables.h"

#include "run/console.h"
#include "run/stop.h"

namespace vantelgis {

void stopWithoutMemory() {
    consoleLine("\nERROR - Could not allocate enough memory (RAM).");
    EXITS();
}

}  // namespace vantelgis
