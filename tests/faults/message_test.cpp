#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "gis/layers.h"
#include "gis/mif/reader.h"
#include "gis/operations.h"
#include "gis/shp/files.h"
#include "gis/shp/writer.h"
#include "memory/memory_run.h"
#include "run/opener.h"
#include "run/opener_settings.h"
#include "support/rows.h"
#include "toolkit/lines.h"

namespace vantelgis {

namespace {

using memory::system;

std::string afterTheHead(std::string_view objects) {
    return "Columns 1\r\n A Decimal(8,0)\r\nData\r\n" + std::string(objects);
}

// The run stops with this text, from an empty line on.
void expectStop(memory::Files files, std::vector<std::string_view> arguments,
                std::string_view message) {
    system = {};
    system.files = std::move(files);
    memory::runProgramInMemory(arguments);
    EXPECT_TRUE(
        system.console.ends_with("\n\n" + std::string(message) + "\nPress Enter to Close\n"))
        << system.console;
}

TEST(ALayerThatCannotBeRead, StopsWithItsMessage) {
    const std::pair<std::string, std::string_view> rows[] = {
        {"Version 300\r\nNo field\r\n",
         "ERROR 0314 - Could not read number of attributes in .mif file\n"},
        {"Columns one\r\n", "ERROR 0314 - Could not read number of attributes in .mif file\n"},
        {"Columns 0\r\n", "ERROR 0319 - No attributes specified in .mif file.\n"},
        {afterTheHead("Pline 2\r\n0 0\r\n1"),
         "ERROR 0309 - Unexpected end of .mif file encountered.\n"},
        {afterTheHead("Line 0 0 1\r\n"), "ERROR 0309 - Unexpected end of .mif file encountered.\n"},
        {afterTheHead("Pline 2\r\n0 0\r\n1 one\r\n"),
         "ERROR 0308 - Reading .mif file.  Check file format is not corrupted.\n"},
        {afterTheHead("Collection 2\r\n"),
         "ERROR 0303 - MIF \"Collection\" objects not supported.  Delete or disaggregate "
         "object.\n"},
        {afterTheHead(" region 10001 of them\r\n"),
         "ERROR 0304 - Exceeded maximum number of polygons in region below of 10000\n"
         " region 10001 of them\n"},
    };
    for (const auto& [mif, message] : rows)
        expectStop({{"a.mif", mif}, {"a.mid", "1\r\n2\r\n"}}, {"a.mif"}, message);
}

TEST(ACommandLineThatCannotBeRun, StopsWithItsMessage) {
    const std::pair<std::vector<std::string_view>, std::string_view> rows[] = {
        {{"a.12da"}, "ERROR - Must specify output format with -shp or -mif.\n"},
        {{"-out", "b", "a.12da"}, "ERROR - Must specify output format with -shp or -mif.\n"},
        {{"a.shp"}, "ERROR - A Header.prj or Projection.prj file does not exist in folder.\n"},
        {{"a.shp", "short.prj"},
         "ERROR 0428 - End of .shp file encountered whilst reading header.\n"},
        {{"a.mif", "short.prj"}, "ERROR - Unable to find CoordSys line in short.prj\n"},
    };
    const std::string shp(99, '\0');
    for (const auto& [arguments, message] : rows)
        expectStop({{"a.12da", ""}, {"a.shp", shp}, {"a.dbf", ""}, {"short.prj", "PROJCS"}},
                   arguments, message);
}

TEST(AMillionPoints, AreTheMost) {
    std::string points = afterTheHead("");
    std::string records;
    for (int i = 0; i < 1'000'001; ++i) {
        points += "Point 1 1\r\n";
        records += "1\r\n";
    }
    const memory::Files files{{"a.mif", "CoordSys\r\n" + points}, {"a.mid", records}};
    expectStop(files, {"-zln", "a.mif"},
               "ERROR - Exceeded maximum number of breakline points: 1000000\n\n"
               "Enter command<CR> or <CR> to continue.\n");
    expectStop(files, {"-results", "a.mif"},
               "ERROR - Exceeded maximum number of points, please contact "
               "support@vantelgis.example\n");
}

// What only a host, or a fault in the program, can bring about.
TEST(ACallThatCannotBeMet, StopsWithItsMessage) {
    int unit = 0;
    Line line;
    GisObject object;
    shpL_ shp;
    dbfL_ dbf;
    const auto open = [&](std::string_view mode, std::string_view name) {
        openUnit(unit, mode, name);
    };
    const auto copyTo = [&](std::string_view root) {
        openerSettings.copyMode = true;
        openerSettings.copyRoot = root;
        open("I ", "folder/in");
    };
    const struct {
        std::function<void()> call;
        std::string_view message;
        int faultAt = -1;
    } rows[] = {
        {[] {
             for (int i = 0; i <= kMaxLayers; ++i) gisOpenLayer("in.mif", {}, "I ");
         },
         "ERROR 0251 - Cannot have more than 100 GIS layers open at once.\n"},
        {[] { gisOpenLayer("a.dbf", {}, "I "); },
         "ERROR 0252 - .dbf is not a supported GIS file format.\n"},
        {[&] { gisCloseLayer(unit); },
         "SOFTWARE CHECK - Trying to close a GIS Layer that's not open.  Please contact "},
        {[&] {
             const int layer = gisOpenLayer("in.mif", {}, "I ");
             ObjectNodes nodes{10};
             gisReadHeader(layer);
             gisObjectType(layer, object);
             gisReadObject(layer, object, nodes);
         },
         "ERROR 0318 - Less than 5 points for Region object in mif file.\n"},
        {[&] { gisWriteObject(gisOpenLayer("a.mif", {}, "O "), object); },
         "ERROR 0350 - Trying to write a MIF object that is not yet supported.  Please contact "},
        {[&] { gisWriteObject(gisOpenLayer("a.shp", "P", "O "), object); },
         "\n\nShould not be here [gisWriteObject-shp].  Please contact "},
        {[&] { shpWriteObject(object, shp); },
         "ERROR 0350 - Trying to write a SHP object that is not yet supported.  Please contact "},
        {[&] { OpenshpFile("a.mif", {}, "I ", shp, dbf); },
         "ERROR 0426 - .shp file not specified.\n"},
        {[&] { open("I ", "in.mif"), READLINE(unit, line); },
         "ERROR 0201 - Reading text line from file unit number 1001\n", 1},
        {[&] {
             for (int i = 0; i <= 1000; ++i) open("I ", "in.mif");
         },
         "No free file numbers.\n"},
        {[&] { open("O ", " "); }, " Empty filename specified.  Bailing out.  Please contact "},
        {[&] { open("A ", "in.mif"); }, "...FAILED.  No File Unit allocated.\n", 0},
        {[&] { open("XX", "in.mif"); }, "...  Unrecognised file type XX file in.mif\n"},
        {[&] { open("A ", "new"), open("O ", "new"); },
         " is already open, close it?   Unable to close file.\n", 1},
        {[&] { copyTo("copy/"); },
         "ERROR 0006 - Could not copy the file below while making a copy of the input files.\n"},
        {[&] { copyTo("/"); },
         "ERROR 0005 - Could not make the folder below while making a copy of the input files.\n"},
    };
    for (const auto& row : rows) {
        system = {};
        system.files = {{"in.mif", afterTheHead("Region 1\r\n 2\r\n0 0\r\n1 1\r\n")},
                        {"in.mid", ""},
                        {"folder/in", ""}};
        system.typed = "y\n";
        system.faultAt = row.faultAt;
        unit = 0;
        object.clear();
        memory::callInMemory(row.call);
        EXPECT_TRUE(holds(system.console, row.message));
    }
}

}  // namespace

}  // namespace vantelgis
