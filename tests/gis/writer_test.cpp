#include <functional>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "gis/layer_table.h"
#include "support/layer_text.h"
#include "support/random_inputs.h"
#include "support/rows.h"
#include "support/shape_bytes.h"

namespace vantelgis {
namespace {

using enum ObjectKind;
constexpr double kMost = std::numeric_limits<double>::max();
constexpr double kFar = 9.000000135427196E+29;  // 9.0E29 as a 32-bit number
constexpr FieldDefinition kOneField[] = {{"Z", "Integer", 0}};

void write(int layer, ObjectKind kind, std::vector<double> x, std::vector<double> y,
           std::string_view row, const std::vector<std::int32_t>& parts = {}) {
    OutputNodes nodes{x, y};
    gisWriteObject(layer, {kind, 1, parts, "KIND"}, nodes, {row});
}

// What a run left in a file; a table comes without its date.
std::string left(const std::string& name) {
    std::string bytes = memory::system.files[name];
    return name.ends_with(".dbf") ? bytes.replace(1, 3, 3, '\0') : bytes;
}

// The readers are tested with files made by hand; here they look at what was written.
memory::Files written(std::string_view name) {
    consoleOf({}, [name] {
        int layer = gisCreateLayer(name, "PlR", kOneField);
        const std::vector<double> x{1, 4, 4, 2, 2, 1}, y{5, 5, 8, 7, 6, 5};
        write(layer, multiPolyline, x, y, "7", {0, 4});
        write(layer, region, x, y, "123456789");
        write(layer, multiPoint, {1, 2}, {3, 4}, "-1");
        write(layer, none, {}, {}, "x");
        write(layer, point, {9}, {8}, "8");
        write(layer, text, {1, 2, 3}, {4, 5, 6}, "t");
        write(layer, polyline, {}, {}, "9");
        write(layer, line, {1, 2}, {3, 4}, "0");
        write(layer, multiPolyline, {1}, {2}, "1");
        write(layer, region, {0, 1, 3, 4, 4, 1}, {0, 2, 3, 4, 6, 2}, "2", {0, 2});
        gisCloseLayer(layer);
    });
    return memory::system.files;
}

TEST(Writers, WriteWhatReadersFind) {
    const std::string parts = "plines 2: 1 5, 4 5, 4 8,; 2 7, 2 6, 1 5,; |";
    const std::string area = "region 1: 1 5, 4 5, 4 8, 2 7, 2 6, 1 5, 4 5,; e6 |";
    const std::string areas = "region 2: 0 0, 0 0, 1 2, 3 3, 4 4, 4 6, 1 2, 3 3,; e1 e7 |";
    const memory::Files mif = written("a.mif");
    EXPECT_EQ(layerText(mif, "a.mif"),
              parts + "7\n" + area + "123456789\npoints 2: 1 3,; 2 4,; |-1\nnone 1: 2 4,; |x\n" +
                  "point 1: 9 8,; |8\ntext 1: 9 8,; |t\npline 1:; |9\nline 1: 1 3, 2 4,; |0\n" +
                  "plines 1: 1 2,; |1\n" + areas + "2\n");
    EXPECT_TRUE(holds(mif.at("a.mif"),
                      "Text\r\nt\r\n               2.000           5.000           3.000"
                      "           6.000\r\nPline 0\r\nLine         1.000000        3.000000"));
    const memory::Files shp = written("a.shp");
    EXPECT_EQ(layerText(shp, "a_P.shp"),
              "points 2: 1 3,; 2 4,; |      -1\nnone 1: 2 4,; |       x\npoint 1: 9 8,; |       8\n"
              "point 1: 1 4,; |       t\n");
    EXPECT_TRUE(holds(shp.at("a_P.shx"), big(50) + big(20 + 8 * 2) + big(90) + big(2)));
    EXPECT_EQ(layerText(shp, "a_l.shp"),
              parts + "       7\nnone 1: 2 7, 2 6, 1 5,; |       x\npline 1:; |       9\n" +
                  "pline 1: 1 3, 2 4,; |       0\npline 1: 1 2,; |       1\n");
    EXPECT_EQ(layerText(shp, "a_R.shp"),
              area + "12345678\nnone 1: 1 5, 4 5, 4 8, 2 7, 2 6, 1 5, 4 5,; |       x\n" + areas +
                  "       2\n");
    EXPECT_TRUE(holds(shp.at("a_l.shp"), integers({3}) + doubles({kMost, kMost, -kMost, -kMost})));
}

TEST(MifWriter, GivesPointsTheTextOfTheirNode) {
    consoleOf({}, [] {
        const std::vector<double> x{1234567890, 1}, y{-0.0000004, 2};
        OutputNodes nodes{x, y};
        int layer = gisCreateLayer("a", "L", {});
        gisWritePoint(layer, nodes, 1, {"before", 6});
        gisWriteObject(layer, {polyline}, nodes, {"line"});
        gisWritePoint(layer, nodes, 0, {"behind", 6});
        nodes.assign(y, y);
        gisWritePoint(layer, nodes, 0, {"others", 6});
        gisCloseLayer(layer);
    });
    const std::string all = left("a.mif"), first = "****************       -0.000000\r\n";
    const std::string second = "        1.000000        2.000000\r\n";
    EXPECT_EQ(all.substr(all.find("Point")), "Point " + second + "Pline 2\r\n" + first + second +
                                                 "Point " + first +
                                                 "Point        -0.000000       -0.000000\r\n");
    EXPECT_EQ(left("a.mid"), "before\r\nline\r\nbehind\r\nothers\r\n");
}

TEST(ShpWriter, LeavesHeadersThatNothingWidened) {
    consoleOf({}, [] {
        int layer = gisCreateLayer("out.shp", "PLLp ", kOneField);
        gisCloseLayer(layer);
        layer = gisCreateLayer("none.shp", "P", kOneField);
        write(layer, none, {}, {}, "1");
        gisCloseLayer(layer);
    });
    EXPECT_EQ(left("out_L.shp"), shpHeader(50, 3, {0, 0, -1, -1}));
    EXPECT_EQ(left("out_P.shx"), shpHeader(50, 1, {0, 0, -1, -1}));
    EXPECT_EQ(left("out_P.dbf"), dbfHeader(0, {{"Z", 'N', 8}}) + '\x1a');
    EXPECT_EQ(left("none_P.shx"), shpHeader(54, 1, {kFar, kFar, -kFar, -kFar}) + big(50) + big(2));
}

TEST(DbfWriter, FillsTheFieldsOfATable) {
    consoleOf({}, [] {
        constexpr FieldDefinition kFields[] = {{"  road name_too", "  char(9)", 5},
                                               {"?", "LogicalX", 9},
                                               {"A", "Float", 3},
                                               {"", "decimal", 200}};
        int layer = gisCreateLayer("out.shp", "P", kFields);
        write(layer, point, {1}, {1}, R"("a b cd", yes, 1.5, 12345)");
        write(layer, point, {1}, {1}, "  x,,2*-2");
        gisCloseLayer(layer);
    });
    EXPECT_EQ(
        left("out_P.dbf"),
        dbfHeader(2, {{"roadname_t", 'C', 5}, {"X", 'C', 1}, {"A", 'N', 16, 5}, {"X", 'N', 200}}) +
            " a b cy             1.5" + std::string(195, ' ') + "12345" +
            " x    y              -2" + std::string(198, ' ') + "-2" + '\x1a');
}

// The fields of a rest that was split before stand there already; what a line or a table in between
// changes doesn't get lost.
TEST(DbfWriter, KeepsTheFieldsOfAnEqualRest) {
    constexpr FieldDefinition kFields[] = {{"A", "Char", 2}, {"B", "Char", 2}, {"C", "Char", 2}};
    consoleOf({}, [&] {
        const int layer = gisCreateLayer("out.shp", "PL", kFields);
        for (const char* row : {"1,b,c", "22,b,c", ",b,c", "2*3,c", "4,c", "2*5,c", "6,b,c"})
            write(layer, point, {1}, {1}, row);
        for (const char* row : {"7,b,c", "8"}) write(layer, line, {1, 2}, {1, 2}, row);
        for (const char* row : {"9,b,c", "0", "a", "b,,d"}) write(layer, point, {1}, {1}, row);
        int closed = layer;
        gisCloseLayer(closed);
    });
    constexpr std::size_t kHeader = 32 * 4 + 1;
    EXPECT_EQ(left("out_P.dbf").substr(kHeader),
              " 1 b c  22b c  22b c  3 3 c  4 c c  5 5 c  6 b c "
              " 9 b c  0 b c  a b c  b b d \x1a");
    EXPECT_EQ(left("out_L.dbf").substr(kHeader), " 7 b c  8 b c \x1a");
}

// Points of two tables with random rows, most of which begin with a number that is told of or not.
std::string tablesOf(bool numberTold, std::uint64_t seed) {
    constexpr std::string_view kNumbers[] = {"           -1.25", "               7", "  3", ""};
    constexpr std::string_view kRests[] = {",b, 1", ",'b' , 2", ",,3", ",2*e", "", "/"};
    constexpr FieldDefinition kFields[] = {
        {"A", "Float", 0}, {"B", "Char", 16}, {"C", "Float", 0}, {"D", "Char", 3}};
    consoleOf({}, [&] {
        std::mt19937_64 random(seed);
        int layers[] = {gisCreateLayer("a.shp", "P", std::span(kFields).first(3)),
                        gisCreateLayer("b.shp", "P", std::span(kFields).last(3))};
        const double x = 1;
        const OutputNodes nodes{{&x, 1}, {&x, 1}};
        std::string_view rest;
        for (int n = 0; n < 40; ++n) {
            const std::string_view number = kNumbers[random() % 8 % std::size(kNumbers)];
            if (random() % 3 == 0) rest = kRests[random() % std::size(kRests)];
            const std::string row = std::string(number).append(rest);
            gisWritePoint(layers[random() % 3 / 2], nodes, 0,
                          {row, numberTold ? number.size() : 0});
        }
        for (int& layer : layers) gisCloseLayer(layer);
    });
    return left("a_P.dbf") + left("b_P.dbf");
}

TEST(DbfWriter, TakesANumberAsAnyItem) {
    for (int n = randomInputs(200); n > 0; --n) {
        const auto seed = static_cast<std::uint64_t>(n);
        ASSERT_EQ(tablesOf(true, seed), tablesOf(false, seed)) << seed;
    }
}

// Calls that the writers refuse, each in a run of its own.
using Call = std::function<void()>;

Call fields(std::size_t n, FieldDefinition field) {
    return [=] { gisCreateLayer("out.shp", "P", std::vector(n, field)); };
}
Call object(std::string_view name, ObjectKind kind, const std::vector<std::int32_t>& parts = {}) {
    return [=] { write(gisCreateLayer(name, "P", kOneField), kind, {1, 2}, {3, 4}, "", parts); };
}
Call pointBehind(std::int32_t offset, std::int32_t records) {
    return [=] {
        const int layer = gisCreateLayer("out.shp", "P", kOneField);
        gisLayer(layer).shp[0].offset = offset;
        gisLayer(layer).dbf[0].recordNo = records;
        write(layer, point, {1}, {1}, "1");
    };
}

TEST(Writers, RefuseWhatTheyCannotWrite) {
    constexpr std::int32_t kLast = std::numeric_limits<std::int32_t>::max();
    const std::pair<Call, std::string_view> rows[] = {
        {fields(129, {"F", "Float", 0}),
         "ERROR 0411 - Exceeded maximum number of dbf Fields trying to write dbf file."},
        {fields(0, {}), "ERROR 0319 - No attributes specified when writing .dbf file."},
        {fields(1, {"F", "Char", 0}),
         "ERROR 0412 - dbf field length of 0 is outside allowable range"},
        {fields(1, {"F", "Char", 256}), "ERROR 0412 - dbf field length of 256 is outside"},
        {fields(2, {"F", "Char", 32768}), " Should not be here [dbfTotLen>32767]"},
        {fields(2, {"F", "Char", 32767}), "ERROR 0412 - dbf field length of 32767 is outside"},
        {fields(1, {"F", "Char", -2}), " Should not be here [i2u: i4 outside range]"},
        {fields(128, {"F", "Char", 255}), ""},
        {object("a.mif", arc),
         "ERROR 0350 - Trying to write a MIF object that is not yet supported.  Please contact "},
        {object("a.shp", arc), "Should not be here [gisWriteObject-shp].  Please contact"},
        {object("a.mif", text), " Should not be here [gisWriteObject]"},
        {object("a.mif", polyline, {1, 3}), " Should not be here [gisWriteObject]"},
        // Two parts that begin at one node.
        {object("a.mif", multiPolyline, {0, 1}),
         " Should not be here [gisO_%ir(i) <= gisO_%ir(i-1)] - please contact "
         "support@vantelgis.example"
         ".\nGIS Layer   =    1\ni           =    2\ngisO_%ir(i) =    1\ngisO_%nr    =    2"},
        {object("a.mif", multiPolyline, {1, 2, 2}), "i           =    3\ngisO_%ir(i) =    2\n"},
        {[] { gisWritePoint(gisCreateLayer("a.mif", "P", {}), OutputNodes{}, 0, {}); },
         " Should not be here [gisWriteObject]"},
        {pointBehind(kLast - 14, kLast - 1), ""},
        {pointBehind(kLast - 13, 0), "ERROR 0439 - Writing .shp file object coordinates."},
        {pointBehind(50, kLast),
         "ERROR 0419 - Exceeded dbf limit of 2,147,483,647 records.  Please contact "},
    };
    const auto refuses = [](const Call& call, std::string_view message) {
        const std::string console = consoleOf({{"out_P.shp", std::string(5000, 'x')}}, call);
        EXPECT_EQ(console.ends_with("Press Enter to Close\n"), !message.empty()) << console;
        EXPECT_TRUE(holds(console, message));
    };
    for (const char* type : {"Date", "Cha", "Logica", "Floa", "Intege", "Decima"})
        refuses(fields(1, {"F", type, 8}), " Should not be here [Unrecognised DBF field]");
    for (const auto& [call, message] : rows) refuses(call, message);
    EXPECT_EQ(left("out_P.shp").size(), 128U);  // the older file, which was longer, is gone
}

}  // namespace
}  // namespace vantelgis
