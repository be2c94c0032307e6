#include <climits>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "driver/program.h"
#include "gis/dbf/reader.h"
#include "gis/layer_table.h"
#include "gis/layers.h"
#include "gis/mif/reader.h"
#include "gis/operations.h"
#include "gis/shp/writer.h"
#include "run/messages.h"
#include "run/opener_settings.h"
#include "support/memory_calls.h"
#include "support/rows.h"
#include "toolkit/lines.h"

namespace vantelgis {

namespace {

using memory::system;

// What stops a run of the program on these files.
std::string stopOf(memory::Files files, std::vector<std::string_view> arguments) {
    return faultIn(consoleOf(std::move(files), [&] {
        arguments.insert(arguments.begin(), "vantelgis");
        runProgram(arguments);
    }));
}

TEST(ACommandLineThatCannotBeRun, StopsWithItsMessage) {
    const std::pair<std::vector<std::string_view>, std::string_view> rows[] = {
        {{"a.12da"}, "ERROR - Must specify output format with -shp or -mif."},
        {{"-out", "b", "a.12da"}, "ERROR - Must specify output format with -shp or -mif."},
        {{"a.shp"}, "ERROR - A Header.prj or Projection.prj file does not exist in folder."},
        {{"a.shp", "short.prj"},
         "ERROR 0428 - End of .shp file encountered whilst reading header."},
        {{"a.mif", "short.prj"}, "ERROR - Unable to find CoordSys line in short.prj"},
    };
    for (const auto& [arguments, message] : rows)
        EXPECT_EQ(stopOf({{"a.12da", ""},
                          {"a.shp", std::string(99, '\0')},
                          {"a.dbf", ""},
                          {"short.prj", "PROJCS"}},
                         arguments),
                  message);
}

std::string repeated(std::string_view text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) all += text;
    return all;
}

TEST(AMillion, AreTheMostPointsOfALayer) {
    const memory::Files files{
        {"a.mif", "CoordSys\nColumns 1\n A Float\nData\n" + repeated("Point 1 1\n", 1'000'001)},
        {"a.mid", repeated("1\n", 1'000'001)}};
    EXPECT_EQ(stopOf(files, {"-results", "a.mif"}),
              "ERROR - Exceeded maximum number of points, please contact "
              "support@vantelgis.example");
    EXPECT_EQ(stopOf(files, {"-zln", "a.mif"}), "Enter command<CR> or <CR> to continue.");
    EXPECT_TRUE(holds(system.console,
                      "\n\nERROR - Exceeded maximum number of breakline points: 1000000\n\n"
                      "Enter command<CR>"));
}

TEST(AMillion, AreTheMostVerticesOfAString) {
    const auto stop = [](int more) {
        const std::string lines = repeated("1 2 -99999\n", 1'000'000) + repeated("1 2 3\n", more);
        return stopOf({{"a.12da", "model\nstring polyline {\ndata {\n" + lines + "}\n}\n"}},
                      {"-b", "-out", "a.mif", "a.12da"});
    };
    EXPECT_EQ(stop(0), "");
    EXPECT_TRUE(holds(system.files["a.mif"], "\nPline 1000001\r\n"));  // it closes behind them
    EXPECT_EQ(stop(1),
              "ERROR - Exceeded number of allowable nodes in a single polyline or region.\n"
              "        Requested 1000001        Limit 1000000");
}

// The first word of a message counts it, and its number stands in six columns behind that word.
TEST(AMessage, IsClassifiedAndCounted) {
    const auto classified = [](std::string_view text) {
        std::string told;
        consoleOf({}, [&] {
            DMESSAGES.errorCount = DMESSAGES.warningCount = DMESSAGES.checkCount = 10;
            DMESSAGES.messageNumber = 7;
            DMESSAGES.text1 = text;
            reportMessage(1);
            for (const std::int32_t number :
                 {static_cast<std::int32_t>(DMESSAGES.messageKind), DMESSAGES.messageNumber,
                  DMESSAGES.errorCount, DMESSAGES.warningCount, DMESSAGES.checkCount})
                told += ' ' + std::to_string(number);
        });
        EXPECT_EQ(system.console, "\n" + std::string(text) + "\n");
        return told;
    };
    checkRows(classified, "ERROR 0201 - x ->  1 201 11 10 10", "ERROR - x ->  1 0 11 10 10",
              "WARNING 0405 - x ->  2 405 10 11 10", "CHECK 0008 - x ->  3 8 10 10 11",
              "UNSTABLE 12 x ->  4 12 10 10 10", "Error 0201 ->  0 0 10 10 10",
              "ERROR1234567 ->  1 123456 11 10 10", "WARNING,405 ->  2 0 10 11 10");
}

// What only a host, or a fault in the program, can bring about.
TEST(ACallThatCannotBeMet, StopsWithItsMessage) {
    int unit = 0;
    Line line;
    shpL_ shp;
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
             for (int i = 0; i <= kMaxLayers; ++i) gisOpenLayer("in.mif");
         },
         "ERROR 0251 - Cannot have more than 100 GIS layers open at once.\n"},
        {[] { gisOpenLayer("a.DBF"); }, "ERROR 0252 - .dbf is not a supported GIS file format.\n"},
        {[] { gisReadHeader(0); }, "Should not be here gisReadHeader[gisID=0] - please contact "},
        {[] { gisAtEnd(101); }, " Should not be here [gisAtEnd] - please contact "},
        {[] { gisAtEnd(1); }, " Should not be here [gisAtEnd] - please contact "},
        // The run goes on.
        {[&] { gisCloseLayer(unit), open("A ", "new"); },
         "SOFTWARE CHECK - Trying to close a GIS Layer that's not open.  Please contact "
         "support@vantelgis.example.\n Trying to open file new..."},
        {[] { gisCreateLayer("a.shp", "PX", {}); },
         "Should not be here [OpenshpFileType] - please contact "},
        {[&] { shpWriteObject({}, {}, shp); },
         "ERROR 0350 - Trying to write a SHP object that is not yet supported.  Please contact "},
        {[&] { open("I ", "in.mif"), READLINE(unit, line); },
         "ERROR 0201 - Reading text line from file unit number 1001\n", 1},
        {[&] {
             for (int i = 0; i <= 1000; ++i) open("I ", "in.mif");
         },
         "No free file numbers.\n"},
        {[&] { open("O ", " "); }, " Empty filename specified.  Bailing out.  Please contact "},
        // To append to a file that is open asks nothing.
        {[&] { open("A ", "new"), open("A ", "new"); },
         "new...OK.  File Unit:1001\n Trying to open file new...OK.  File Unit:1002\n"},
        {[&] { open("A ", "in.mif"); }, "...FAILED.  No File Unit allocated.\n", 0},
        // Of a line that is typed its end is dropped and no other CR.
        {[&] { system.typed = "a\rb\r\nin.mif\n", open("I ", "no"); },
         " CHECK 0008 - \"a\rb\" cannot be found\n"},
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
        system.files = {{"in.mif", "x"}, {"in.mid", ""}, {"folder/in", ""}};
        system.typed = "y\n";
        system.faultAt = row.faultAt;
        unit = 0;
        memory::callInMemory(row.call);
        EXPECT_TRUE(holds(system.console, row.message));
    }
}

// Whatever number a caller gives for a layer, nothing outside the table is touched.
TEST(ALayerThatIsNotOpen, StopsEachOperation) {
    GisObject object;
    ObjectNodes nodes(2);
    OutputNodes written;
    const std::pair<std::string_view, std::function<void(int)>> rows[] = {
        {"gisReadHeader", [](int id) { gisReadHeader(id); }},
        {"gisGotoBeginningOfData", [](int id) { gisGotoBeginningOfData(id); }},
        {"gisObjectType", [&](int id) { gisObjectType(id, object); }},
        {"gisReadRecord", [&](int id) { gisReadRecord(id, object); }},
        {"gisReadObject", [&](int id) { gisReadObject(id, object, nodes); }},
        {"gisAtEnd", [](int id) { gisAtEnd(id); }},
        {"gisWriteObject", [&](int id) { gisWriteObject(id, object, written, {}); }},
        {"gisWritePoint", [&](int id) { gisWritePoint(id, written, 0, {}); }},
        {"gisCloseLayer", [](int id) { gisCloseLayer(id); }},
    };
    for (const auto& [name, call] : rows) {
        for (const int id : {INT_MIN, -1, 0, 1, kMaxLayers + 1, INT_MAX}) {
            const bool goesOn = id < 1 && name == "gisCloseLayer";
            EXPECT_TRUE(holds(
                consoleOf({}, [&] { call(id); }),
                goesOn ? "SOFTWARE CHECK - Trying to close a GIS Layer" : "Should not be here "))
                << name << id;
        }
    }
    EXPECT_EQ(consoleOf({},
                        [] {
                            GisLayer layer;
                            gisMifReadHeader(layer.mif);
                            gisMifSkipToData(0);
                            dbfReadHeader(layer.dbf[0]);
                        }),
              "");
}

}  // namespace

}  // namespace vantelgis
