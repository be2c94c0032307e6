#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "gis/layers.h"
#include "gis/operations.h"
#include "run/console.h"
#include "support/in_process_run.h"
#include "support/rows.h"
#include "support/shape_bytes.h"

namespace vantelgis {
namespace {

const std::string kBox(32, 'b');
const std::string kPointAt12 = shpRecord(1, integers({1}) + doubles({1, 2}));

std::string shape(std::int32_t type, std::initializer_list<std::int32_t> counts,
                  std::initializer_list<double> points) {
    return shpRecord(1, integers({type}) + kBox + integers(counts) + doubles(points));
}

// Writes a.shp of these records and a table with a row for each object, and opens the layer.
int openLayer(const std::string& records, int rows = 9) {
    writeFile("a.shp", shpHeader(0, 31, {0, 0, 0, 0}) + records);
    std::string table = dbfHeader(rows, {{"N", 'N', 1}});
    for (int row = 1; row <= rows; ++row) table += " " + std::to_string(row);
    writeFile("a.dbf", table + '\x1a');
    const int layer = gisOpenLayer("a.SHP", {}, "I ");
    gisReadHeader(layer);
    return layer;
}

class ShpReader : public testing::Test {
  protected:
    WorkFolder folder;
    GisObject object;
    ObjectNodes nodes{100};
};

TEST_F(ShpReader, GivesRingsWithTheirSecondVertexBehindEach) {
    // Rings of five, five, two, one and no vertices: just as many nodes as are allowed.
    ObjectNodes eighteen{18};
    runInProcess([&] {
        const int layer = openLayer(shape(
            5, {5, 13, 0, 5, 10, 12, 13},
            {0, 0, 9, 1, 9, 9, 0, 9, 0, 0, 2, 2, 2, 4, 4, 4, 4, 2, 2, 2, 5, 6, 7, 8, -1, -2}));
        ASSERT_TRUE(gisObjectType(layer, object));
        EXPECT_TRUE(object.region);
        EXPECT_EQ(object.nr, 5);
        gisReadObject(layer, object, eighteen);
    });
    ASSERT_EQ(eighteen.n, 18);
    EXPECT_TRUE(std::ranges::equal(std::span(object.ir).first(5), std::array{5, 11, 14, 16, 17}));
    EXPECT_EQ(eighteen.x,
              (std::vector<double>{0, 9, 9, 0, 0, 9, 2, 2, 4, 4, 2, 2, 5, 7, 7, -1, -1, -1}));
    EXPECT_EQ(eighteen.y,
              (std::vector<double>{0, 1, 9, 9, 0, 1, 2, 4, 4, 2, 2, 4, 6, 8, 8, -2, -2, -2}));
}

TEST_F(ShpReader, PassesOverWhatNobodyReads) {
    // Of each kind one object that is not read at all, or only in part, in front of a point.
    const std::pair<std::string, int> unread[] = {
        {shape(3, {3, 5, 0, 2, 2}, {1, 1, 2, 2, 3, 3, 4, 4, 5, 5}), 0},
        {shape(3, {3, 5, 0, 2, 2}, {1, 1, 2, 2, 3, 3, 4, 4, 5, 5}), 2},  // the second part is empty
        {shape(3, {0, 2}, {1, 1, 2, 2}), 0},
        {shape(5, {2, 3, 0, 1}, {1, 1, 2, 2, 3, 3}), 0},
        {shape(5, {0, 2}, {1, 1, 2, 2}), 0},
        {shape(5, {-3, 2}, {1, 1, 2, 2}), 1},
        {shape(8, {3}, {1, 1, 2, 2, 3, 3}), 0},
        {shape(8, {3}, {1, 1, 2, 2, 3, 3}), 1},
        {shpRecord(1, integers({0})), 1},
        {kPointAt12, 0},
    };
    for (const auto& row : unread) {
        bool point = false;
        runInProcess([&] {
            const int layer = openLayer(row.first + kPointAt12);
            ASSERT_TRUE(gisObjectType(layer, object));
            for (int read = 0; read < row.second; ++read) gisReadObject(layer, object, nodes);
            point = gisObjectType(layer, object) && object.point;
            if (point) gisReadObject(layer, object, nodes);
            EXPECT_TRUE(gisAtEnd(layer));
            EXPECT_FALSE(gisObjectType(layer, object));
        });
        EXPECT_TRUE(point && nodes.xc == 1.0 && nodes.yc == 2.0) << row.first;
    }
}

TEST_F(ShpReader, TellsWhatIsWrongWithARecord) {
    const std::string noTable(40000, '\0');
    const std::pair<std::string, std::string_view> rows[] = {
        {"\1", "ERROR 0425 - End of .shp file encountered whilst reading object type.\n"},
        {kPointAt12.substr(0, 11), "ERROR 0425"},
        {kPointAt12.substr(0, 27),
         "ERROR 0430 - End of .shp file encountered whilst reading object coordinates."},
        {shpRecord(1, integers({15})), "ERROR 0423 - Unsupported .shp object type PolygonZ [15]\n"},
        {shpRecord(1, integers({-4})), "ERROR 0423 - Unsupported .shp object type Unknown [-4]\n"},
        {shape(3, {-1, 2}, {1, 1, 2, 2}), "ERROR 0424 - Reading .shp file object type.\n"},
        {shape(3, {1, -1, 0}, {}), "ERROR 0424"},
        {shape(3, {2, 2, 0, 3}, {1, 1, 2, 2}), "ERROR 0424"},
        {shape(3, {1, 2, 1}, {1, 1, 2, 2}), "ERROR 0424"},
        {shape(3, {3, 4, 0, 2, 1}, {}), "ERROR 0424"},
        {shape(3, {1, 0x7fffffff, 0}, {1, 1}), "Requested********        Limit     100\n"},
        {shape(3, {9999, 0}, {}) + noTable, "read"},
        {shape(3, {10000, 0}, {}) + noTable,
         "ERROR 0421 - Exceeded maximum number of parts in a .shp polyline.  Limit is 10000\n"},
        {shape(5, {9999, 0}, {}) + noTable, "Requested    9999        Limit     100\n"},
        {shape(5, {10000, 0}, {}) + noTable,
         "ERROR 0422 - Exceeded maximum number of regions within a .shp region.  Limit is 10000\n"},
        {shape(5, {1, -1, 0}, {}), "ERROR 0429 - Reading .shp file object coordinates.\n"},
        {shape(5, {2, 2, 0, 3}, {1, 1, 2, 2}), "ERROR 0429"},
        {shape(5, {1}, {}), "ERROR 0430"},
        {shape(8, {-1}, {}), "ERROR 0424"},
        // Nobody reads these; their content is cut off.
        {kPointAt12 + shape(3, {1, 2, 0}, {1, 1, 2}), "read\n\nERROR 0425"},
        {kPointAt12 + shape(5, {1, 2, 0}, {1, 1}), "read\n\nERROR 0425"},
        {kPointAt12 + shape(8, {2}, {}), "read\n\nERROR 0425"},
    };
    for (const auto& row : rows) {
        const auto run = runInProcess([&] {
            const int layer = openLayer(row.first);
            gisObjectType(layer, object);
            gisReadObject(layer, object, nodes);
            consoleLine("read");
            while (gisObjectType(layer, object)) continue;
        });
        EXPECT_TRUE(holds(run.console, row.second));
    }
}

TEST_F(ShpReader, ReadsPointsThatReachOverTheBuffersEnd) {
    constexpr std::int32_t kCount = 40'000;  // 640,000 bytes; the buffer holds 262,144
    std::string points;
    ObjectNodes many{kCount};
    std::vector<double> x, y;
    for (std::int32_t i = 0; i < kCount; ++i) {
        x.push_back(i + 0.25), y.push_back(-i - 0.5);
        points += doubles({x.back(), y.back()});
    }
    runInProcess([&] {
        const int layer = openLayer(shape(3, {1, kCount, 0}, {}) + points);
        ASSERT_TRUE(gisObjectType(layer, object));
        gisReadObject(layer, object, many);
    });
    EXPECT_TRUE(many.n == kCount && many.x == x && many.y == y);
}

TEST_F(ShpReader, CountsPositionsIn64Bits) {
    // A point behind a multipoint of 34 GB, most of which is a hole in the file.
    constexpr std::int32_t kCount = 0x7fffffff;
    const std::string multiPoint = shape(8, {kCount}, {});
    runInProcess([&] {
        const int layer = openLayer(multiPoint);
        const std::int64_t end = 100 + std::ssize(multiPoint) + std::int64_t{16} * kCount;
        std::filesystem::resize_file("a.shp", static_cast<std::uintmax_t>(end));
        std::ofstream("a.shp", std::ios::binary | std::ios::app) << kPointAt12;
        ASSERT_TRUE(gisObjectType(layer, object));
        ASSERT_TRUE(gisObjectType(layer, object));
        EXPECT_TRUE(object.point);
        gisReadObject(layer, object, nodes);
        EXPECT_TRUE(gisAtEnd(layer));
    });
    EXPECT_EQ(nodes.xc, 1.0);
}

}  // namespace
}  // namespace vantelgis
