#pragma once

#include "text/paths.h"
#include "text/text.h"

namespace vantelgis {

/// What the command line says of a run.
struct RunSettings {
    Path inputFile1;      ///< File 1, the first positional argument
    Path inputFile2;      ///< File 2, blank if there is none
    Path outputFile;      ///< value of -out, then the output name that was worked out
    Text<200> modelName;  ///< value of -model
    bool useMif = false;  ///< an archive is written as MapInfo; or File 1 is a .mif
    bool useShp = false;  ///< an archive is written as shapefiles; or File 1 is a .shp
    bool wantXs = false;
    bool wantZln = false;
    bool wantHip = false;
    bool wantResults = false;
    bool noFinalPause = false;
    bool haveOutput = false;
    bool haveModel = false;

    /// File 2 has a name: its path without folder and extension is not blank.
    [[nodiscard]] bool hasFile2() const { return !baseNameOf(inputFile2).empty(); }
};

}  // namespace vantelgis
