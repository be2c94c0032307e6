#include <string>

#include "support/layer_text.h"
#include "support/rows.h"
#include "support/shape_bytes.h"

namespace vantelgis {
namespace {

const std::string kBox(32, 'b');
const std::string kPoint = shpRecord(1, integers({1}) + doubles({1, 2}));
const std::string kPointText = "point 1: 1 2,; |";

std::string shape(std::int32_t type, std::initializer_list<std::int32_t> counts,
                  std::initializer_list<double> points) {
    return shpRecord(1, integers({type}) + kBox + integers(counts) + doubles(points));
}

// A layer of these records with a row for each object.
memory::Files layerOf(const std::string& records) {
    std::string rows;
    for (const char row : {'1', '2', '3'}) rows += std::string(" ") + row;
    return {{"a.shp", shpHeader(0, 31, {0, 0, 0, 0}) + records},
            {"a.dbf", dbfHeader(3, {{"N", 'N', 1}}) + rows + '\x1a'}};
}

std::string shpText(const std::string& records, std::int32_t reads = 99) {
    return layerText(layerOf(records), "a.shp", reads, 18);
}

TEST(ShpReader, ReadsEachKind) {
    const std::pair<std::string, std::string> rows[] = {
        // Rings of five, five, two, one and no vertices: just as many nodes as are allowed.
        {shape(5, {5, 13, 0, 5, 10, 12, 13},
               {0, 0, 9, 1, 9, 9, 0, 9, 0, 0, 2, 2, 2, 4, 4, 4, 4, 2, 2, 2, 5, 6, 7, 8, -1, -2}),
         "region 5: 0 0, 9 1, 9 9, 0 9, 0 0, 9 1, 2 2, 2 4, 4 4, 4 2, 2 2, 2 4, 5 6, 7 8, 7 8, -1 "
         "-2,"
         " -1 -2, -1 -2,; e5 e11 e14 e16 e17 |1\n"},
        {shape(3, {3, 5, 0, 2, 2}, {1, 1, 2, 2, 3, 3, 4, 4, 5, 5}) + kPoint,
         "plines 3: 1 1, 2 2,;; 3 3, 4 4, 5 5,; |1\n" + kPointText + "2\n"},
        {shape(3, {1, 2, 0}, {1, 1, 2, 3}) + shpRecord(2, integers({0})) + kPoint,
         "pline 1: 1 1, 2 3,; |1\nnone 1: 1 1, 2 3,; |2\n" + kPointText + "3\n"},
        {shape(8, {2}, {1, 1, 2, 2}), "points 2: 1 1,; 2 2,; |1\n"},
        {shape(5, {0, 2}, {1, 1, 2, 2}) + shape(5, {-3, 2}, {1, 1, 2, 2}) + kPoint,
         "region 0:; |1\nregion -3:; |2\n" + kPointText + "3\n"},
    };
    for (const auto& [records, text] : rows) EXPECT_EQ(shpText(records), text);
}

TEST(ShpReader, PassesOverWhatIsNotFetched) {
    const std::string twoParts = shape(3, {2, 3, 0, 2}, {1, 1, 2, 2, 3, 3});
    const std::string points = shape(8, {3}, {1, 1, 2, 2, 3, 3});
    const std::string rings = shape(5, {2, 3, 0, 1}, {1, 1, 2, 2, 3, 3});
    EXPECT_EQ(shpText(twoParts + points + kPoint, 1),
              "plines 2: 1 1, 2 2,; |1\npoints 3: 1 1,; |2\n" + kPointText + "3\n");
    EXPECT_EQ(shpText(twoParts + points + rings, 0), "plines 2: |1\npoints 3: |2\nregion 2: |3\n");
    EXPECT_EQ(shpText(shape(3, {0, 2}, {1, 1, 2, 2}) + rings + kPoint, 0),
              "unknown 0: |1\nregion 2: |2\npoint 1: |3\n");
    const std::string cutOff =
        "ERROR 0425 - End of .shp file encountered whilst reading object type.";
    for (const std::string& record : {shape(3, {1, 2, 0}, {1, 1, 2}), shape(5, {1, 2, 0}, {1, 1}),
                                      shape(8, {2}, {}), shpRecord(1, integers({1}))})
        EXPECT_TRUE(holds(shpText(record + kPoint.substr(0, 7), 0), "|1\n" + cutOff)) << record;
}

TEST(ShpReader, GoesBackFromWithinARecord) {
    const std::string lines = shape(3, {1, 2, 0}, {1, 1, 2, 2});
    const std::string rings = shape(5, {1, 1, 0}, {1, 1});
    for (const std::string& record : {lines, rings, kPoint}) {
        GisObject before;
        GisObject first;
        GisObject second;
        consoleOf(layerOf(record + kPoint), [&] {
            const int layer = gisOpenLayer("a.shp");
            gisReadHeader(layer);
            gisObjectType(layer, before);
            gisGotoBeginningOfData(layer);
            gisObjectType(layer, first);
            gisObjectType(layer, second);
        });
        EXPECT_EQ(first.kind, before.kind);
        EXPECT_EQ(second.kind, ObjectKind::point);
    }
}

TEST(ShpReader, TellsWhatIsWrongWithARecord) {
    const std::string noTable(40000, '\0');
    const std::string type = "ERROR 0424 - Reading .shp file object type.";
    const std::string endOfType =
        "ERROR 0425 - End of .shp file encountered whilst reading object type.";
    const std::string coordinates = "ERROR 0429 - Reading .shp file object coordinates.";
    const std::string endOfCoordinates =
        "ERROR 0430 - End of .shp file encountered whilst reading object coordinates.";
    const auto tooMany = [](std::string_view requested) {
        return "ERROR 0310 - Exceeded number of allowable nodes in a single .shp polyline or "
               "region."
               "\n             Requested" +
               std::string(requested) + "        Limit      18";
    };
    const std::pair<std::string, std::string> rows[] = {
        {"\1", endOfType},
        {kPoint.substr(0, 11), endOfType},
        {kPoint.substr(0, 27), "point 1:" + endOfCoordinates},
        {shpRecord(1, integers({15})), "ERROR 0423 - Unsupported .shp object type PolygonZ [15]"},
        {shpRecord(1, integers({-4})), "ERROR 0423 - Unsupported .shp object type Unknown [-4]"},
        {shpRecord(1, integers({33})), "ERROR 0423 - Unsupported .shp object type Unknown [33]"},
        {shpRecord(1, integers({31})), "ERROR 0423 - Unsupported .shp object type MultiPatch [31]"},
        {shape(3, {-1, 2}, {1, 1, 2, 2}), type},
        {shape(3, {1, -1, 0}, {}), type},
        {shape(3, {2, 2, 0, 3}, {1, 1, 2, 2}), type},
        {shape(3, {1, 2, 1}, {1, 1, 2, 2}), type},
        {shape(3, {3, 4, 0, 2, 1}, {}), type},
        {shape(3, {1, 0x7fffffff, 0}, {1, 1}), "pline 1:" + tooMany("********")},
        {shape(3, {1, 19, 0}, {1, 1}), "pline 1:" + tooMany("      19")},
        {shape(3, {9999, 18}, {}) + noTable, endOfType},
        {shape(3, {10000, 0}, {}) + noTable,
         "ERROR 0421 - Exceeded maximum number of parts in a .shp polyline.  Limit is 10000"},
        {shape(5, {9999, 0}, {}) + noTable, "region 9999:" + tooMany("    9999")},
        {shape(5, {10000, 0}, {}) + noTable,
         "ERROR 0422 - Exceeded maximum number of regions within a .shp region.  Limit is 10000"},
        {shape(5, {2, 17, 0, 8}, {}), "region 2:" + tooMany("      19")},
        {shape(5, {1, -1, 0}, {}), "region 1:" + coordinates},
        {shape(5, {2, 2, 0, 3}, {1, 1, 2, 2}), "region 2:" + coordinates},
        {shape(5, {1}, {}), "region 1:" + endOfCoordinates},
        {shape(8, {-1}, {}), type},
    };
    for (const auto& [records, message] : rows) {
        const std::string text = shpText(records);
        EXPECT_TRUE(text == message || holds(text, "\n" + message)) << text;
    }
}

TEST(ShpReader, ReadsPointsThatReachOverTheBuffersEnd) {
    constexpr std::int32_t kCount = 40'000;  // 640,000 bytes; the buffer holds 262,144
    std::string points, text = "pline 1:";
    for (std::int32_t i = 0; i < kCount; ++i) {
        points += doubles({i + 0.25, -i - 0.5});
        text += ' ' + std::to_string(i) + ".25 -" + std::to_string(i) + ".5,";
    }
    const std::string read =
        layerText(layerOf(shape(3, {1, kCount, 0}, {}) + points), "a.shp", 1, kCount);
    EXPECT_TRUE(read == text + "; |1\n") << read.substr(0, 100);
}

}  // namespace
}  // namespace vantelgis
