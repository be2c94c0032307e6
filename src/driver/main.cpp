#include <string_view>
#include <vector>

#include "driver/program.h"
#include "run/platform.h"

int main(int count, char** values) {
    vantelgis::platform::outliveRefusedWrites();
    const std::vector<std::string_view> arguments(values, values + count);
    vantelgis::runProgram(arguments);
}
