#include "memory/sample_runs.h"

#include <string>

#include "memory/memory_run.h"

namespace vantelgis {

namespace {

const std::string kMifHeader = "CoordSys NonEarth Units \"m\"\r\n";
const std::string kPrj = "PROJCS[\"Grid\"]\r\n";

const std::string kLinesMif =
    "Version 300\r\n" + kMifHeader +
    "Columns 1\r\n  Z Float\r\nData\r\n\r\n"
    "Pline 3\r\n0 0\r\n10 5\r\n20 0\r\n"
    "Region 1\r\n 4\r\n0 0\r\n1 0\r\n1 1\r\n0 0\r\n"
    "Line 1 1 2 2\r\nPline Multiple 2\r\n 2\r\n3 3\r\n4 4\r\n 2\r\n5 5\r\n6 6\r\n"
    "Point 0 0\r\nPoint 20 0\r\nPoint 7 7\r\n";
const std::string kLinesMid = "1.5\r\n2\r\n3\r\n4\r\n10\r\n20\r\n30\r\n";

const std::string kPointsMif =
    "Columns 2\r\n  Value Decimal(8,3)\r\n  Angle Decimal(8,3)\r\nData\r\n\r\n"
    "Point 1 2\r\nPoint\r\n3 4\r\nPoint 5 5\r\n";
const std::string kPointsMid = "1.25,90\r\n2.5,-10\r\n3,0\r\n";

const std::string kArchive =
    "// archive_version 10\r\n// null_keyword true\r\n// output_hex_floats false\r\n"
    "null -999\r\nmodel \"survey\"\r\n"
    "string 3d {\r\n  name \"A\"\r\n  data {\r\n 0 0 1\r\n 5 5 null\r\n 9 0 3\r\n  }\r\n}\r\n"
    "string super {\r\n  name \"B\"\r\n  data_3d {\r\n 1 1 1\r\n 2 2 2\r\n  }\r\n"
    "  data_3d {\r\n 3 3 3\r\n 4 4 4\r\n  }\r\n}\r\n"
    "string 3d polyline {\r\n  name \"C\"\r\n  data {\r\n 7 7 7\r\n 8 8 8\r\n  }\r\n}\r\n";

// The files that the program itself leaves of a layer, under the names of an input.
void addShapefiles(memory::Files& files, const std::string& stem, const std::string& family) {
    memory::system = {};
    memory::system.files = {{"site.12da", kArchive}, {"Header.prj", kPrj}};
    const std::string_view arguments[] = {"-shp", "site.12da"};
    memory::runProgramInMemory(arguments);
    for (const std::string extension : {".shp", ".dbf", ".prj"})
        files[stem + extension] = memory::system.files["site.12da_" + family + extension];
}

std::vector<SampleRun> makeSampleRuns() {
    const memory::Files mif{{"Header.mif", kMifHeader},
                            {"lines.mif", kLinesMif},
                            {"lines.mid", kLinesMid},
                            {"points.mif", kPointsMif},
                            {"points.mid", kPointsMid}};
    memory::Files shp{{"Header.prj", kPrj}};
    addShapefiles(shp, "lines", "L");
    addShapefiles(shp, "points", "P");
    const memory::Files archive{
        {"site.12da", kArchive}, {"Header.mif", kMifHeader}, {"Header.prj", kPrj}};
    return {{"2d from mif", {"lines.mif"}, mif},
            {"2d from shp", {"lines.shp"}, shp},
            {"3d from mif", {"-zln", "points.mif", "lines.mif"}, mif},
            {"3d from one mif", {"-zln", "lines.mif"}, mif},
            {"3d from shp", {"-zln", "points.shp", "lines.shp"}, shp},
            {"results from mif", {"-results", "points.mif"}, mif},
            {"results from shp", {"-results", "points.shp"}, shp},
            {"strings to mif", {"-mif", "site.12da"}, archive},
            {"strings to shp", {"-shp", "site.12da"}, archive},
            {"cross-sections to mif", {"-xs", "-mif", "site.12da"}, archive},
            {"cross-sections to shp", {"-xs", "-shp", "site.12da"}, archive}};
}

std::string repeated(std::string_view text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i) result += text;
    return result;
}

std::vector<SampleRun> makeLargeRuns() {
    const int nodes = 12'000;
    const std::string vertices = repeated(" 1 2 3\r\n 2 3 4\r\n", nodes / 2);
    const memory::Files archive{
        {"site.12da",
         "model \"m\"\r\nstring 3d {\r\n name \"A\"\r\n data {\r\n" + vertices + " }\r\n}\r\n"},
        {"Header.mif", kMifHeader},
        {"Header.prj", kPrj}};
    const std::string head = kMifHeader + "Columns 1\r\n  Z Float\r\nData\r\n\r\n";
    const memory::Files mif{
        {"Header.mif", kMifHeader},
        {"lines.mif", head + "Pline 12000\r\n" + repeated("1 2\r\n2 3\r\n", nodes / 2)},
        {"lines.mid", "1\r\n"},
        {"points.mif", head + repeated("Point 1 2\r\n", nodes)},
        {"points.mid", repeated("1\r\n", nodes)}};
    return {{"3d", {"-zln", "lines.mif"}, mif},
            {"unsnapped points", {"-zln", "points.mif", "lines.mif"}, mif},
            {"results", {"-results", "points.mif"}, mif},
            {"strings to mif", {"-mif", "site.12da"}, archive},
            {"strings to shp", {"-shp", "site.12da"}, archive},
            {"cross-sections to mif", {"-xs", "-mif", "site.12da"}, archive}};
}

}  // namespace

const std::vector<SampleRun>& sampleRuns() {
    static const std::vector<SampleRun> runs = makeSampleRuns();
    return runs;
}

const std::vector<SampleRun>& largeRuns() {
    static const std::vector<SampleRun> runs = makeLargeRuns();
    return runs;
}

}  // namespace vantelgis
