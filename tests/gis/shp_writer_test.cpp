#include <algorithm>
#include <filesystem>
#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "gis/layers.h"
#include "gis/operations.h"
#include "run/console.h"
#include "run/units.h"
#include "support/in_process_run.h"
#include "support/rows.h"
#include "support/shape_bytes.h"

namespace vantelgis {
namespace {

constexpr double kMost = std::numeric_limits<double>::max();
constexpr double kFar = 9.000000135427196E+29;  // 9.0E29 as a 32-bit number

// The table without its date.
std::string table(const char* name) {
    return readFile(name).replace(1, 3, 3, '\0');
}

int newLayer(std::string_view families) {
    const int layer = gisOpenLayer("out.shp", families, "O ");
    gisWriteHeader(layer);
    gisO_.clear();
    return layer;
}

void setNodes(std::initializer_list<double> x, std::initializer_list<double> y) {
    gisN = static_cast<std::int32_t>(x.size());
    gisReserveNodes(gisN);
    std::copy(x.begin(), x.end(), gisX.begin());
    std::copy(y.begin(), y.end(), gisY.begin());
}

void write(int layer, bool GisObject::*kind, std::string_view row) {
    gisO_.*kind = true;
    gisWriteObject(layer, gisO_);
    gisDataLine = row;
    gisWriteRecord(layer, gisO_);
    gisO_.*kind = gisO_.point = false;
}

class ShpWriter : public testing::Test {
  protected:
    // Runs `body` with one integer field to be made.
    static RunResult run(const std::function<void()>& body) {
        return runInProcess([&body] {
            constexpr FieldDefinition kOneField[] = {{"Z", "Integer", 0}};
            gisSetFields(kOneField);
            body();
        });
    }
    WorkFolder folder;
};

TEST_F(ShpWriter, WritesEachKindToItsFamily) {
    run([] {
        gisShpProjCS = "PROJCS[]";
        int layer = newLayer("lPR");
        setNodes({1, 4, 4, 2, 2}, {5, 5, 8, 7, 6});
        gisO_.nr = 2;
        gisO_.ir[1] = 4;
        write(layer, &GisObject::plineMultiple, "7");
        gisO_.nr = 0;
        write(layer, &GisObject::region, "123456789");
        write(layer, &GisObject::multiPoint, "-1");
        write(layer, &GisObject::none, "x");
        write(layer, &GisObject::text, "8");
        setNodes({}, {});
        write(layer, &GisObject::pline, "9");
        gisCloseLayer(layer);
    });
    const std::string points = doubles({1, 5, 4, 5, 4, 8, 2, 7, 2, 6});
    const std::string box = doubles({1, 5, 4, 8});
    const std::string null = integers({0});
    EXPECT_EQ(readFile("out_P.shp"),
              shpHeader(50 + 64 + 6 + 14, 1, {1, 5, 4, 8}) +
                  shpRecord(1, integers({8}) + box + integers({5}) + points) + shpRecord(2, null) +
                  shpRecord(3, integers({1}) + doubles({1, 5})));
    EXPECT_EQ(readFile("out_l.shp"),
              shpHeader(50 + 70 + 6 + 28, 3, {1, 5, 4, 8}) +
                  shpRecord(1, integers({3}) + box + integers({2, 5, 0, 3}) + points) +
                  shpRecord(2, null) +
                  shpRecord(3, integers({3}) + doubles({kMost, kMost, -kMost, -kMost}) +
                                   integers({1, 0, 0})));
    EXPECT_EQ(readFile("out_R.shp"),
              shpHeader(50 + 68 + 6, 5, {1, 5, 4, 8}) +
                  shpRecord(1, integers({5}) + box + integers({1, 5, 0}) + points) +
                  shpRecord(2, null));
    EXPECT_EQ(readFile("out_P.shx"), shpHeader(62, 1, {1, 5, 4, 8}) + big(50) + big(60) + big(114) +
                                         big(2) + big(120) + big(10));
    const std::string fields = dbfHeader(3, {{"Z", 'N', 8}});
    EXPECT_EQ(table("out_P.dbf"), fields + "       -1" + "        x" + "        8" + '\x1a');
    EXPECT_EQ(table("out_l.dbf"), fields + "        7" + "        x" + "        9" + '\x1a');
    EXPECT_EQ(table("out_R.dbf"),
              dbfHeader(2, {{"Z", 'N', 8}}) + " 12345678" + "        x" + '\x1a');
    EXPECT_EQ(readFile("out_l.prj"), "PROJCS[]\r\n");
}

TEST_F(ShpWriter, LeavesHeadersThatNothingWidened) {
    run([] {
        int layer = newLayer("PLLp");
        gisCloseLayer(layer);
        layer = gisOpenLayer("none.shp", "P", "O ");
        gisWriteHeader(layer);
        write(layer, &GisObject::none, "1");
        gisCloseLayer(layer);
    });
    EXPECT_EQ(readFile("out_L.shp"), shpHeader(50, 3, {0, 0, -1, -1}));
    EXPECT_EQ(readFile("out_P.shx"), shpHeader(50, 1, {0, 0, -1, -1}));
    EXPECT_EQ(table("out_P.dbf"), dbfHeader(0, {{"Z", 'N', 8}}) + '\x1a');
    EXPECT_EQ(readFile("none_P.shx"),
              shpHeader(54, 1, {kFar, kFar, -kFar, -kFar}) + big(50) + big(2));
}

TEST_F(ShpWriter, FillsTheFieldsOfATable) {
    static constexpr FieldDefinition kFields[] = {{"  road name_too", "  char(9)", 5},
                                                  {"?", "LogicalX", 9},
                                                  {"A", "Float", 3},
                                                  {"", "decimal", 200}};
    run([] {
        gisSetFields(kFields);
        int layer = newLayer("P");
        setNodes({1}, {1});
        write(layer, &GisObject::point, R"("a b cd", yes, 1.5, 12345)");
        write(layer, &GisObject::point, "  x,,2*-2");
        gisCloseLayer(layer);
    });
    EXPECT_EQ(
        table("out_P.dbf"),
        dbfHeader(2, {{"roadname_t", 'C', 5}, {"X", 'C', 1}, {"A", 'N', 16, 5}, {"X", 'N', 200}}) +
            " a b cy             1.5" + std::string(195, ' ') + "12345" +
            " x    y              -2" + std::string(198, ' ') + "-2" + '\x1a');
}

TEST_F(ShpWriter, TellsWhichFieldsDoNotFit) {
    const struct {
        std::int32_t n;
        std::string_view type;
        std::int32_t width;
        std::string_view message;
    } rows[] = {
        {129, "Float", 0,
         "ERROR 0411 - Exceeded maximum number of dbf Fields trying to write dbf file."},
        {0, "Float", 0, "ERROR 0319 - No attributes specified when writing .dbf file.\n"},
        {1, "Date", 8, " Should not be here [Unrecognised DBF field] - please contact"},
        {1, "Char", 0, "ERROR 0412 - dbf field length of 0 is outside allowable range of 1 to 255"},
        {1, "Char", 256, "ERROR 0412 - dbf field length of 256"},
        {2, "Char", 32768, " Should not be here [dbfTotLen>32767] - please contact"},
        {2, "Char", 32767, "ERROR 0412 - dbf field length of 32767"},
        {1, "Char", -2, " Should not be here [i2u: i4 outside range] - please contact"},
        {128, "Char", 255, "written"},
    };
    for (const auto& row : rows) {
        const auto result = run([&row] {
            gisA_.n = row.n;
            std::fill_n(gisA_.type, 129, row.type);
            std::fill_n(gisA_.width, 129, row.width);
            newLayer("P");
            consoleLine("written");
        });
        EXPECT_TRUE(holds(result.console, row.message));
    }
}

TEST_F(ShpWriter, StopsBeforeItsNumbersOverflow) {
    writeFile("out_P.shp", std::string(5000, 'x'));  // older and longer
    constexpr std::int32_t kLast = std::numeric_limits<std::int32_t>::max();
    const struct {
        std::int32_t offset;
        std::int32_t recordNo;
        std::string_view message;
    } rows[] = {
        {kLast - 14, kLast - 1, "written"},
        {kLast - 13, 0, "ERROR 0439 - Writing .shp file object coordinates.\n"},
        {50, kLast, "ERROR 0419 - Exceeded dbf limit of 2,147,483,647 records.  Please contact "},
    };
    for (const auto& row : rows) {
        const auto result = run([&row] {
            const int layer = newLayer("P");
            gisLayer(layer).shp[0].offset = row.offset;
            gisLayer(layer).dbf[0].recordNo = row.recordNo;
            setNodes({1}, {1});
            write(layer, &GisObject::point, "1");
            consoleLine("written");
        });
        EXPECT_TRUE(holds(result.console, row.message));
    }
    EXPECT_EQ(readFile("out_P.shp").size(), 128U);  // of a stopped run, with its only point
}

TEST_F(ShpWriter, FinishesATableOfMoreThan4Gigabytes) {
    constexpr std::int64_t kHole = 5'000'000'000;
    run([] {
        int layer = newLayer("P");
        ASSERT_TRUE(platform::seekFile(fileOf(gisLayer(layer).dbf[0].dbfUnit).handle, kHole));
        setNodes({1}, {1});
        write(layer, &GisObject::point, "1");
        gisCloseLayer(layer);
    });
    EXPECT_EQ(std::filesystem::file_size("out_P.dbf"), kHole + 10U);
    std::filesystem::resize_file("out_P.dbf", 65);
    EXPECT_EQ(table("out_P.dbf"), dbfHeader(1, {{"Z", 'N', 8}}));
}

}  // namespace
}  // namespace vantelgis
