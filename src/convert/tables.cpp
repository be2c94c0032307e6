#include "convert/tables.h"

#include "run/stop.h"

namespace vantelgis {

void stopWithoutMemory() {
    stopWith("", "ERROR - Could not allocate enough memory (RAM).");
}

}  // namespace vantelgis
