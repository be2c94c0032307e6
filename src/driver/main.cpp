#include <exception>

#include "driver/program.h"
#include "run/platform.h"
#include "run/stop.h"

int main(int count, char** values) {
    // Where memory is too short even for an exception.
    std::set_terminate([] { vantelgis::stopWith("", "ERROR - Out of memory"); });
    vantelgis::platform::outliveRefusedWrites();
    vantelgis::platform::outliveTerminal();
    vantelgis::runProgram(count, values);
}
