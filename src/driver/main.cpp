#include "driver/program.h"
#include "run/platform.h"

int main(int count, char** values) {
    vantelgis::platform::outliveRefusedWrites();
    vantelgis::platform::outliveTerminal();
    vantelgis::runProgram(count, values);
}
