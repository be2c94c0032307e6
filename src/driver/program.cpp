#include "driver/program.h"

#include <exception>
#include <new>
#include <string>
#include <vector>

#include "convert/conversions.h"
#include "driver/options.h"
#include "driver/output_name.h"
#include "driver/projection.h"
#include "gis/layer_files.h"
#include "gis/layers.h"
#include "run/console.h"
#include "run/messages.h"
#include "run/platform.h"
#include "run/run_inputs.h"
#include "run/stop.h"
#include "run/units.h"
#include "text/joined.h"
#include "text/paths.h"

namespace vantelgis {

namespace {

constexpr int kUnitBase = 1000;

void startLibraries() {
    initialiseUnits(kUnitBase);
    clearMessage();
    gisInitialise();
}

// Also files that are opened late, or closed early, are whole when an output is asked for.
void declareInputs(const RunSettings& run) {
    for (const Path& layer : {run.inputFile1, run.inputFile2}) {
        if (layer.blank()) continue;
        for (const Path& file : gisFilesOf(layer)) declareInput(file);
    }
}

void reportFiles(const RunSettings& run) {
    consoleLine("\nFile 1: ", run.inputFile1);
    if (run.hasFile2()) consoleLine("\nFile 2: ", run.inputFile2);
}

void convertToArchive(RunSettings& run) {
    nameArchive(run);
    if (run.wantZln) {
        convertBreaklines3d(run);
    } else if (run.wantResults) {
        convertResults(run);
    } else {
        convertBreaklines2d(run);
    }
}

void convertFromArchive(RunSettings& run) {
    nameLayer(run);
    includeHip = run.wantHip;
    if (run.wantXs) {
        convertCrossSections(run);
    } else {
        convertStringsToGis(run);
    }
}

bool isOneOf(std::string_view file, std::string_view extension, std::string_view other) {
    return hasExtension(file, extension) || hasExtension(file, other);
}

// The extension of File 1 chooses the direction.
void convert(RunSettings& run) {
    if (isOneOf(run.inputFile1, ".mif", ".shp")) {
        convertToArchive(run);
    } else if (isOneOf(run.inputFile1, ".12da", ".4da")) {
        convertFromArchive(run);
    } else {
        consolePause(
            "ERROR - File 1 has an unrecognisable file extension.  Must be \".mif\", \".shp\", "
            "\".12da\" or \".4da\".");
    }
}

[[noreturn]] void runWith(std::span<const std::string_view> arguments) {
    startLibraries();
    consoleLine("\nBuild 2024-05-AA\n");
    if (arguments.size() < 2) {
        printUsage();
        stopRun();
    }
    consoleLine("Executable: ", arguments.front());
    RunSettings run = readOptions(arguments.subspan(1));
    declareInputs(run);
    searchProjection(run);
    reportFiles(run);
    convert(run);
    consoleLine("\nFinished.");
    if (run.noFinalPause) endRun();
    stopRun();
}

// What goes wrong on the way to a message of its own still gets a line, behind whatever stands
// open.
template <typename Body>
[[noreturn]] void runGuarded(Body body) {
    try {
        body();
        endRun();
    } catch (const std::bad_alloc&) {
        stopWith("", "ERROR - Out of memory");
    } catch (const std::exception& exception) {
        stopWith("", Joined<1000>("ERROR - ", exception.what()));
    }
}

}  // namespace

void runProgram(std::span<const std::string_view> arguments) {
    runGuarded([&] { runWith(arguments); });
}

void runProgram(int count, char** values) {
    runGuarded([&] {
        std::vector<std::string> texts;
        if (!platform::takeArguments(count, values, texts))
            stopWith("", "ERROR - An argument is not valid text.");
        const std::vector<std::string_view> arguments(texts.begin(), texts.end());
        runWith(arguments);
    });
}

}  // namespace vantelgis
