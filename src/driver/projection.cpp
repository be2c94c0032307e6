#include "driver/projection.h"

#include <string_view>

#include "gis/mif/writer.h"
#include "gis/shp/writer.h"
#include "run/console.h"
#include "run/messages.h"
#include "run/opener.h"
#include "run/platform.h"
#include "run/stop.h"
#include "run/unit_reading.h"
#include "text/joined.h"
#include "text/paths.h"
#include "text/strings.h"

namespace vantelgis {

namespace {

Path inFolderOfFile1(const RunSettings& run, std::string_view name) {
    return joinedPath(folderOf(run.inputFile1), name);
}

Path withExtensionPrj(std::string_view file) {
    Path result = withoutExtension(file);
    result += ".prj";
    return result;
}

// Reads on to the first line that holds `word`, wherever in it; false at the end of the file. A
// projection of several lines gives its first one alone.
bool findLine(int unit, std::string_view word, TextRef found) {
    std::string_view line;
    ReadResult result;
    while ((result = readLine(unit, line)) == ReadResult::ok) {
        line = line.substr(0, Line::capacity());
        if (!containsIgnoringCase(line, word)) continue;
        found.assign(withoutLeadingBlanks(line));
        return true;
    }
    if (result == ReadResult::failed) stopReadingData();
    return false;
}

// Opens the chosen file and takes its projection line.
void readProjection(std::string_view file, std::string_view word, std::string_view family,
                    TextRef target) {
    int unit = 0;
    openUnit(unit, "I ", file);
    consoleLine("\nUsing ", file, " for setting projection.");
    if (!findLine(unit, word, target))
        stopWith("", Joined<1100>("ERROR - Unable to find ", word, " line in ", file));
    consoleLine("\n", family, " Projection: ", target.view());
}

void readMifProjection(std::string_view file) {
    readProjection(file, "CoordSys", "mif", gisMifCoordSys);
}

void readShpProjection(std::string_view file) {
    readProjection(file, "PROJCS", "shp", gisShpProjCS);
}

void useNonEarthCoordinates() {
    consoleLine("\nWARNING - A Header.mif or Projection.mif file does not exist in folder.");
    consoleLine("          Non-Earth Coordinates will be used.");
    pauseRun();
    gisMifCoordSys = "CoordSys NonEarth Units \"m\"";
}

void searchMifProjection(const RunSettings& run) {
    if (run.useShp) stopWith("ERROR - Both -shp and -mif specified.");
    if (run.hasFile2()) return readMifProjection(run.inputFile2);

    const bool fromFile1 = run.wantZln && hasExtension(run.inputFile1, ".mif");
    Path file = fromFile1 ? run.inputFile1 : inFolderOfFile1(run, "Header.mif");
    if (!platform::inputExists(file)) file = inFolderOfFile1(run, "Projection.mif");
    if (!platform::inputExists(file)) return useNonEarthCoordinates();
    readMifProjection(file);
}

// A look that leaves no trace: the unit is free again behind it.
bool holdsProjection(std::string_view file) {
    Unit* const unit = freeUnit();
    if (unit == nullptr || !platform::inputExists(file)) return false;
    const OpenMode& mode = *findOpenMode("I ");
    const auto handle = platform::openFile(file, mode.access, mode.sharing);
    if (handle == platform::kNoFile) return false;
    attachFile(*unit, handle, mode, file);
    Line line;
    const bool found = findLine(unit->number, "PROJCS", line);
    static_cast<void>(closeFileOf(*unit));
    return found;
}

// A shapefile and a File 2: the first of the likely files that has a projection, or none.
void takeFirstShpProjection(const RunSettings& run) {
    for (const Path& file : {withExtensionPrj(run.inputFile2), inFolderOfFile1(run, "Header.prj"),
                             inFolderOfFile1(run, "Projection.prj")}) {
        if (holdsProjection(file)) return readShpProjection(file);
    }
}

// Shapefiles have no coordinate system to fall back on: without a projection the run stops.
void searchShpProjection(const RunSettings& run) {
    const bool shpInput = hasExtension(run.inputFile1, ".shp");
    if (run.hasFile2())
        return shpInput ? takeFirstShpProjection(run) : readShpProjection(run.inputFile2);

    Path file;
    if (run.wantZln && shpInput) {
        file = withExtensionPrj(run.inputFile1);
    } else {
        file = inFolderOfFile1(run, "Header.prj");
        if (!platform::inputExists(file)) file = inFolderOfFile1(run, "Projection.prj");
    }
    if (!platform::inputExists(file))
        stopWith("", "ERROR - A Header.prj or Projection.prj file does not exist in folder.");
    readShpProjection(file);
}

}  // namespace

void searchProjection(const RunSettings& run) {
    if (run.useMif) {
        searchMifProjection(run);
    } else if (run.useShp) {
        searchShpProjection(run);
    }
}

}  // namespace vantelgis
