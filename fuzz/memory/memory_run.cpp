#include "memory/memory_run.h"

#include <vector>

#include "driver/program.h"
#include "run/console.h"
#include "run/units.h"
#include "support/fresh_start.h"

namespace vantelgis::memory {

void callInMemory(const std::function<void()>& body) {
    freshStart();
    system.programRuns = true;
    try {
        body();
    } catch (const ProcessEnd&) {
    }
    system.programRuns = false;
    consoleFlush();
    initialiseUnits(0);  // closes what a body that returned left open
    closeAllFiles();
}

void runProgramInMemory(std::span<const std::string_view> arguments) {
    std::vector<std::string_view> all{"vantelgis"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    callInMemory([&all] { runProgram(all); });
}

}  // namespace vantelgis::memory
