#include "driver/options.h"

#include <cstddef>

#include "run/console.h"
#include "text/paths.h"
#include "text/strings.h"

namespace vantelgis {

namespace {

constexpr std::string_view kUsage[] = {
    "",
    "CONVERT FROM GIS TO 12DA:",
    "1:  vantelgis.exe <Lines>.mif",
    "Converts to 2D breakline.",
    "",
    "Options:",
    "-zln converts a MARVEN 3D breakline to 12da format, including",
    "   interpolation of Z values at intermediate vertices",
    "2:  vantelgis.exe -zln <Points>.shp <Lines>.shp",
    "3:  vantelgis.exe -zln <Points>.mif <Lines>.mif",
    "4:  vantelgis.exe -zln <Lines_and_Points>.mif",
    "",
    "CONVERT FROM 12DA TO MIF:",
    "5:  vantelgis.exe -mif <12da_file>.12da <Header>.mif",
    "<Header>.mif is any .mif file with the correct projection.",
    R"(   (Will search input directory for "Header.mif" or "Projection.mif" if omitted.))",
    "CONVERT FROM 12DA TO SHP:",
    "6:  vantelgis.exe -shp <12da_file>.12da <Header>.prj",
    "<Header>.prj is any .prj file with the correct projection.",
    R"(   (Will search input directory for "Header.prj" or "Projection.prj" if omitted.))",
    ".4da extension also accepted",
    "Options:",
    "   -hip includes 12D hipdata polylines.",
    "   -xs  creates MARVEN .csv cross-section files and 1d_xs layer.",
    "Output Options:",
    "   -out <output_filename> Specify the output file name.",
    R"(   For conversions to .12da the "-model <model_name>" option can be used to set the model name.)",
    "7:  vantelgis.exe -out output_file.12da <Lines>.mif",
    "8:  vantelgis.exe -model 12d_Model_Name <Lines>.mif",
    "",
};

enum class Expects { nothing, modelName, outputFile };

// An option is known by as many first characters as `text` has; only -b takes the next one into
// account, so that a longer word that begins with b is no option.
struct Option {
    std::string_view text;
    std::size_t compared;
    bool RunSettings::*flag;
    Expects next;
};
constexpr Option kOptions[] = {
    {"xs", 2, &RunSettings::wantXs, Expects::nothing},
    {"zln", 3, &RunSettings::wantZln, Expects::nothing},
    {"hip", 3, &RunSettings::wantHip, Expects::nothing},
    {"mif", 3, &RunSettings::useMif, Expects::nothing},
    {"shp", 3, &RunSettings::useShp, Expects::nothing},
    {"b", 2, &RunSettings::noFinalPause, Expects::nothing},
    {"model", 5, nullptr, Expects::modelName},
    {"results", 7, &RunSettings::wantResults, Expects::nothing},
    {"out", 3, &RunSettings::haveOutput, Expects::outputFile},
};

// The minus sign, the slash (so a path that begins with one is an option, and an unknown one is
// ignored), and the en dash of the Windows code page.
bool isOptionLeader(char c) {
    return c == '-' || c == '/' || c == '\x96';
}

Expects applyOption(std::string_view text, RunSettings& run) {
    Expects next = Expects::nothing;
    for (const Option& option : kOptions) {
        if (!looselyEqual(text.substr(0, option.compared), option.text)) continue;
        if (option.flag != nullptr) run.*option.flag = true;
        next = option.next;
    }
    return next;
}

void takePositional(std::string_view argument, int position, RunSettings& run) {
    if (position == 2) run.inputFile2 = argument;
    if (position != 1) return;
    run.inputFile1 = argument;
    if (hasExtension(run.inputFile1, ".mif")) run.useMif = true;
    if (hasExtension(run.inputFile1, ".shp")) run.useShp = true;
}

}  // namespace

void printUsage() {
    for (const std::string_view line : kUsage) consoleLine(line);
}

RunSettings readOptions(std::span<const std::string_view> arguments) {
    RunSettings run;
    Expects expected = Expects::nothing;
    int positions = 0;
    for (const std::string_view argument : arguments) {
        const Path text{argument};
        const Expects now = expected;
        expected = Expects::nothing;
        if (now == Expects::modelName) {
            run.modelName = text;
            run.haveModel = true;
        } else if (now == Expects::outputFile) {
            run.outputFile = text;
        } else if (text.blank() || !isOptionLeader(text.view().front())) {
            takePositional(text, ++positions, run);
        } else {
            expected = applyOption(text.view().substr(1), run);
        }
    }
    return run;
}

}  // namespace vantelgis
