#include "driver/output_name.h"

#include <string_view>

#include "run/console.h"
#include "run/opener.h"
#include "run/stop.h"
#include "text/paths.h"

namespace vantelgis {

namespace {

std::string_view wantedExtension(const RunSettings& run) {
    if (run.useMif) return ".mif";
    if (run.useShp) return ".shp";
    stopWith("", "ERROR - Must specify output format with -shp or -mif.");
}

// A blank name can't be opened: the opener says so and ends the run here, before the conversion
// reads the archive. The other conversions open their output first and need no such help.
void refuseBlankName(const RunSettings& run) {
    int unit = 0;
    if (run.outputFile.blank()) openUnit(unit, "O ", run.outputFile);
}

// A name with a format's extension is taken as it is; the projection was searched for before it was
// looked at, and may be that of the other format.
void checkGivenLayerName(RunSettings& run) {
    consoleLine("\nUsing specified output filename: ", run.outputFile);
    for (const std::string_view extension : {".mif", ".shp"}) {
        if (!hasExtension(run.outputFile, extension)) continue;
        consoleLine("\nOutput file has extention \"", extension, "\", outputting in this format.");
        return;
    }
    const std::string_view wanted = wantedExtension(run);
    consoleLine("\nAppending \"", wanted, "\" to filename.");
    refuseBlankName(run);
    run.outputFile += wanted;
}

}  // namespace

// A File 2 names the result even where it was given for its projection alone.
void nameArchive(RunSettings& run) {
    if (!run.haveOutput) {
        run.outputFile = withoutExtension(run.hasFile2() ? run.inputFile2 : run.inputFile1);
        run.outputFile += ".12da";
        return;
    }
    if (!run.outputFile.blank() && !hasExtension(run.outputFile, ".12da"))
        run.outputFile += ".12da";
}

void nameLayer(RunSettings& run) {
    if (run.haveOutput) return checkGivenLayerName(run);
    run.outputFile = run.inputFile1;
    run.outputFile += wantedExtension(run);
}

}  // namespace vantelgis
