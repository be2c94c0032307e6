#include "run/platform.h"
#include "run/stop.h"

namespace vantelgis {

// In a file of its own, so that a program which brings its own one replaces it at link time.
void endProcess() {
    platform::exitProcess();
}

}  // namespace vantelgis
