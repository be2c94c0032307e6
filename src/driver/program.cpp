#include "driver/program.h"

#include <exception>
#include <new>

#include "archive/conversions.h"
#include "driver/conversions.h"
#include "driver/options.h"
#include "driver/output_name.h"
#include "driver/projection.h"
#include "gis/layers.h"
#include "run/console.h"
#include "run/messages.h"
#include "run/stop.h"
#include "run/units.h"
#include "text/paths.h"

namespace vantelgis {

namespace {

constexpr int kUnitBase = 1000;

void startLibraries() {
    FILESINIT(kUnitBase);
    DMESSAGECLEAR();
    gisInitialise(-1, {}, {}, {});
}

void reportFiles(const RunSettings& run) {
    consoleLine("\nFile 1: ", run.inputFile1);
    if (hasFile2(run)) consoleLine("\nFile 2: ", run.inputFile2);
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
        convert_12da_to_xs(run.inputFile1, run.outputFile);
    } else {
        convert_12da_to_mif(run.inputFile1, run.outputFile);
    }
}

// The extension of File 1 chooses the direction.
void convert(RunSettings& run) {
    Text<16> extension;
    FILEEXT(extension, run.inputFile1);
    if (extension == ".mif" || extension == ".shp") {
        convertToArchive(run);
    } else if (extension == ".12da" || extension == ".4da") {
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
        EXITS();
    }
    consoleLine("Executable: ", arguments.front());
    RunSettings run = readOptions(arguments.subspan(1));
    searchProjection(run);
    reportFiles(run);
    convert(run);
    consoleLine("\nFinished.");
    if (run.noFinalPause) endRun();
    EXITS();
}

}  // namespace

void runProgram(std::span<const std::string_view> arguments) {
    try {
        runWith(arguments);
    } catch (const std::bad_alloc&) {
        stopWithText("ERROR - Out of memory");
    } catch (const std::exception& exception) {
        consoleText("ERROR - ");
        stopWithText(exception.what());
    }
}

}  // namespace vantelgis
