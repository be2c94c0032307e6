#include "driver/program.h"
#include "run/platform.h"

int main(int count, char** values) {
    vantelgis::platform::outliveRefusedWrites();
    vantelgis::runProgram(count, values);
}
