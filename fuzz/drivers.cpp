#include "drivers.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "memory/memory_run.h"
#include "memory/sample_runs.h"

namespace vantelgis::fuzz {

namespace {

using memory::system;

using Arguments = std::vector<std::string_view>;

// Stands between the files of an input, which are otherwise taken as they are.
constexpr std::string_view kDivider = "\n=====\n";

struct Input {
    unsigned mode = 0;  // the first byte
    std::string first;
    std::string second;
};

Input split(std::string_view bytes) {
    Input input;
    if (bytes.empty()) return input;
    input.mode = static_cast<unsigned char>(bytes.front());
    bytes.remove_prefix(1);
    const std::size_t divider = bytes.find(kDivider);
    input.first = bytes.substr(0, divider);
    if (divider != std::string_view::npos) input.second = bytes.substr(divider + kDivider.size());
    return input;
}

[[noreturn]] void stopWithDifference(const std::string& one, const std::string& other) {
    std::fprintf(stderr,
                 "The run depends on the size of its reads:\n%s\n--- in small pieces:\n%s\n",
                 one.c_str(), other.c_str());
    std::abort();
}

void runOnce(const memory::Files& files, const Arguments& arguments, std::string_view typed,
             std::size_t mostPerRead) {
    constexpr std::size_t kDisk = std::size_t{64} * 1024 * 1024;
    system = {};
    system.files = files;
    system.typed = typed;
    system.diskSize = kDisk;
    system.mostPerRead = mostPerRead;
    memory::runProgramInMemory(arguments);
}

// The same must come out whether a file is read at once or in pieces of a few bytes.
void runBothWays(const memory::Files& files, const Arguments& arguments,
                 std::string_view typed = {}) {
    constexpr std::size_t kWhole = std::numeric_limits<std::size_t>::max();
    constexpr std::size_t kPiece = 5;
    runOnce(files, arguments, typed, kWhole);
    const std::string console = std::exchange(system.console, {});
    const memory::Files result = std::exchange(system.files, {});
    runOnce(files, arguments, typed, kPiece);
    if (console != system.console) stopWithDifference(console, system.console);
    if (result != system.files) stopWithDifference("(files)", "(other files)");
}

// The conversions of a layer. Those to 3D breaklines, which make large tables first, come seldom.
Arguments layerArguments(unsigned mode, std::string_view layer) {
    switch (mode % 16) {
        case 1: return {"-b", "-zln", layer};
        case 2: return {"-b", "-zln", layer, layer};
        case 3:
        case 4:
        case 5: return {"-b", "-results", layer};
        default: return {"-b", layer};
    }
}

void runMif(std::string_view bytes) {
    const Input input = split(bytes);
    runBothWays({{"Header.mif", "CoordSys NonEarth\n"},
                 {"a.mif", "CoordSys\n" + input.first},
                 {"a.mid", input.second}},
                layerArguments(input.mode, "a.mif"));
}

void runShp(std::string_view bytes) {
    const Input input = split(bytes);
    runBothWays({{"Header.prj", "PROJCS"},
                 {"a.prj", "PROJCS"},
                 {"a.shp", input.first},
                 {"a.dbf", input.second}},
                layerArguments(input.mode, "a.shp"));
}

void runArchive(std::string_view bytes) {
    const Input input = split(bytes);
    Arguments arguments{"-b", "a.12da"};
    arguments.push_back((input.mode & 1U) != 0 ? "-shp" : "-mif");
    if ((input.mode & 2U) != 0) arguments.push_back("-xs");
    if ((input.mode & 4U) != 0) arguments.push_back("-hip");
    runBothWays({{"Header.prj", "PROJCS"},
                 {"Header.mif", "CoordSys NonEarth\n"},
                 {"a.12da", input.first + (input.second.empty() ? "" : std::string(kDivider)) +
                                input.second}},
                arguments);
}

memory::Files layersOfAllKinds() {
    memory::Files files;
    for (const SampleRun& run : sampleRuns()) files.insert(run.files.begin(), run.files.end());
    return files;
}

// One argument on each line; behind the divider what is typed.
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

constexpr Driver kDrivers[] = {
    {"mif", runMif}, {"shp", runShp}, {"archive", runArchive}, {"command", runCommand}};

}  // namespace

std::span<const Driver> drivers() {
    return kDrivers;
}

const Driver* findDriver(std::string_view name) {
    for (const Driver& driver : kDrivers)
        if (driver.name == name) return &driver;
    return nullptr;
}

}  // namespace vantelgis::fuzz
