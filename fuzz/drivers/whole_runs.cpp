#include <algorithm>
#include <string>

#include "drivers/drivers.h"
#include "drivers/runs.h"
#include "memory/sample_runs.h"

namespace vantelgis::fuzz {

namespace {

// The same must come out whether a file is read at once or in pieces of a few bytes.
void runBothWays(const memory::Files& files, const Arguments& arguments,
                 std::string_view typed = {}) {
    constexpr std::size_t kPiece = 5;
    const Outcome atOnce = outcomeOf(files, arguments, typed);
    const Outcome inPieces = outcomeOf(files, arguments, typed, kPiece);
    if (atOnce != inPieces)
        stopAtDifference("The run depends on the size of its reads", atOnce, inPieces);
}

std::string joined(const Input& input) {
    std::string all{input.first};
    if (!input.second.empty()) all.append(kDivider).append(input.second);
    return all;
}

memory::Files layersOfAllKinds() {
    memory::Files files;
    for (const SampleRun& run : sampleRuns()) files.insert(run.files.begin(), run.files.end());
    return files;
}

}  // namespace

void runMif(std::string_view bytes) {
    const Input input = split(bytes);
    runBothWays({{"Header.mif", "CoordSys NonEarth\n"},
                 {"a.mif", "CoordSys\n" + std::string(input.first)},
                 {"a.mid", std::string(input.second)}},
                layerArguments(input.mode, "a.mif"));
}

void runShp(std::string_view bytes) {
    const Input input = split(bytes);
    runBothWays({{"Header.prj", "PROJCS"},
                 {"a.prj", "PROJCS"},
                 {"a.shp", std::string(input.first)},
                 {"a.dbf", std::string(input.second)}},
                layerArguments(input.mode, "a.shp"));
}

void runArchive(std::string_view bytes) {
    const Input input = split(bytes);
    runBothWays({{"Header.prj", "PROJCS"},
                 {"Header.mif", "CoordSys NonEarth\n"},
                 {"a.12da", joined(input)}},
                archiveArguments(input.mode, "a.12da"));
}

void runCommand(std::string_view bytes) {
    static const memory::Files files = layersOfAllKinds();
    const Input input = split(bytes);
    Arguments arguments;
    std::string_view rest = input.first;
    while (!rest.empty()) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        arguments.push_back(line);
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    }
    runBothWays(files, arguments, input.second);
}

}  // namespace vantelgis::fuzz
