#include <string_view>
#include <vector>

#include "driver/program.h"

int main(int count, char** values) {
    const std::vector<std::string_view> arguments(values, values + count);
    vantelgis::runProgram(arguments);
}
