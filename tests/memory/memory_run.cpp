#include "memory/memory_run.h"

#include <vector>

#include "driver/program.h"
#include "support/fresh_start.h"

namespace vantelgis::memory {

void runProgramInMemory(std::span<const std::string_view> arguments) {
    std::vector<std::string_view> all{"vantelgis"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    support::freshStart();
    system.programRuns = true;
    try {
        runProgram(all);
    } catch (const support::ProcessEnd&) {
        system.programRuns = false;
        closeAllFiles();
    }
}

}  // namespace vantelgis::memory
