// An icon on which files or folders are dropped: it runs vantelgis-batch on them in the way that
// its own name says, and waits for a key, so that the verdicts can be read.

#include <string>
#include <vector>

#include "drop/calls.h"
#include "drop/system.h"
#include "drop/targets.h"
#include "run/console.h"
#include "run/platform.h"
#include "text/paths.h"

namespace vantelgis::drop {

namespace {

int refuse(std::string_view line) {
    consoleLine(line);
    return 2;
}

int runCalls(const std::string& folder, std::span<const Call> calls) {
    const std::string program = folder + "vantelgis-batch.exe";
    int worst = 0;
    for (const Call& call : calls) {
        consoleFlush();
        const int status = runProgram(program, call);
        if (status == kNotStarted)
            return refuse("There is no vantelgis-batch.exe beside this program.");
        if (platform::inputExists(call.report)) consoleLine("\nThe report: ", call.report);
        worst = std::max(worst, status);
    }
    return worst;
}

int run(std::span<const std::string> dropped) {
    const std::string own = ownProgram();
    const std::string name(baseNameOf(own));
    const Target* const target = targetNamed(name);
    if (target == nullptr) return refuse("The name of this program has lost what it converts.");
    std::vector<std::string> names;
    for (const std::string& argument : dropped) names.push_back(absoluteName(argument));
    const std::vector<Call> calls = planCalls(*target, name, names);
    if (calls.empty()) {
        consoleLine(name, ": drop ", target->takes, " on this icon.");
        return 2;
    }
    return runCalls(std::string(folderOf(own)), calls);
}

}  // namespace

}  // namespace vantelgis::drop

int main(int count, char** values) {
    using namespace vantelgis;
    std::vector<std::string> arguments;
    const bool taken = platform::takeArguments(count, values, arguments);
    const int status = taken
                           ? drop::run(std::span(arguments).subspan(1))
                           : drop::refuse("A name that was dropped is no text that can be shown.");
    consoleLine("\nPress any key to close this window.");
    consoleFlush();
    drop::waitForKey();
    return status;
}
