#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "gis/layers.h"
#include "gis/operations.h"
#include "run/console.h"
#include "run/units.h"

namespace vantelgis {
namespace {

constexpr char kHead[] = "Columns 1\nA Char(3)\nData\n";

class MifReader : public testing::Test {
  protected:
    void SetUp() override {
        FILESINIT(1000);
        gisInitialise(-1, {}, {}, {});
    }
    void TearDown() override {
        gisCloseLayer(layer);
        consoleReset();
        std::filesystem::remove_all(folder);
    }
    // Opens a layer of this text and reads its header.
    void open(const std::string& mif) {
        std::filesystem::create_directories(folder);
        std::ofstream(folder + "/a.mif", std::ios::binary) << mif;
        std::ofstream(folder + "/a.mid", std::ios::binary) << "1\n2\n3\n4\n5\n6\n7\n8\n9\n";
        layer = gisOpenLayer(folder + "/a.MID", {}, "I ");
        gisReadHeader(layer);
    }
    bool next() { return gisObjectType(layer, object); }
    void read() { gisReadObject(layer, object, nodes); }

    const std::string folder = testing::TempDir() + "mif_reader_test";
    int layer = 0;
    GisObject object;
    ObjectNodes nodes{100};
};

TEST_F(MifReader, KeepsRegionsPolygonByPolygon) {
    // A square with a triangle in it; behind each polygon its second vertex is repeated.
    open(
        std::string(kHead) +
        "Region 2\n 5\n0 0\n10 0\n10 10\n0 10\n0 0\n4\n1 1\n2 1\n2 2\n1 1\n Brush(1)\nPoint 1 1\n");
    ASSERT_TRUE(next());
    EXPECT_TRUE(object.region);
    read();
    ASSERT_EQ(nodes.n, 11);
    EXPECT_EQ(object.ir[0], 5);
    EXPECT_EQ(object.ir[1], 10);
    EXPECT_EQ(nodes.x[5], 10.0);
    EXPECT_EQ(nodes.x[10], 2.0);
    EXPECT_EQ(nodes.y[10], 1.0);
    // The mean of all nodes but the last two: x 0 10 10 0 0 10 1 2 2, y 0 0 10 10 0 0 1 1 2.
    EXPECT_DOUBLE_EQ(nodes.xc, 35.0 / 9);
    EXPECT_DOUBLE_EQ(nodes.yc, 24.0 / 9);
    ASSERT_TRUE(next());
    EXPECT_TRUE(object.point);
}

TEST_F(MifReader, TakesTheCentreOfARegionOnlyFromTheLastLine) {
    const std::string square = "Region 1\n 5\n0 0\n10 0\n10 10\n0 10\n0 0\n";
    open(kHead + square + "  Center 3 4\n" + square + "    cENTER 7 8");
    ASSERT_TRUE(next());
    read();
    EXPECT_EQ(nodes.n, 6);
    EXPECT_EQ(nodes.xc, 5.0);  // the mean of the first four vertices
    ASSERT_TRUE(next());
    read();
    EXPECT_EQ(nodes.xc, 7.0);
    EXPECT_EQ(nodes.yc, 8.0);
    EXPECT_TRUE(gisAtEnd(layer));
}

TEST_F(MifReader, MeasuresLinesInSinglePrecision) {
    open(std::string(kHead) +
         "Pline 3\n0 0\n3 4\n3 14\nPline 1\n5 6\nLine 0 0 -2 0\nPline 2\n1 1\n1 1\n");
    ASSERT_TRUE(next());
    read();
    EXPECT_EQ(nodes.length, 15.0F);  // 5 and 10: the middle lies 2.5 up the second segment
    EXPECT_DOUBLE_EQ(nodes.xc, 3);
    EXPECT_DOUBLE_EQ(nodes.yc, 6.5);
    EXPECT_EQ(nodes.angle, 90.0F);
    ASSERT_TRUE(next());
    read();
    EXPECT_EQ(nodes.n, 1);
    EXPECT_EQ(nodes.length, 0.0F);
    ASSERT_TRUE(next());
    read();
    EXPECT_EQ(nodes.xc, -1.0);
    EXPECT_EQ(nodes.angle, 180.0F);
    EXPECT_EQ(nodes.length, 2.0F);
    ASSERT_TRUE(next());
    read();
    EXPECT_EQ(nodes.n, 2);
}

TEST_F(MifReader, PassesOverWhatTheCallerDoesNotFetch) {
    open(std::string(kHead) +
         "Pline Multiple 2\n2\n0 0\n1 1\n2\n5 5\n6 6\nplines 2\n7 7\n8 8\n"
         "\t point 9 10\nData\nNONE");
    ASSERT_TRUE(next());
    EXPECT_EQ(object.nSections, 2);
    EXPECT_EQ(object.objName, "PLINE MULTIPLE");
    read();
    ASSERT_TRUE(next());
    EXPECT_TRUE(object.pline);
    EXPECT_FALSE(object.plineMultiple);
    ASSERT_TRUE(next());
    read();
    EXPECT_EQ(nodes.yc, 10.0);
    EXPECT_EQ(nodes.x[1], 9.0);
    ASSERT_TRUE(next());
    EXPECT_TRUE(object.none);
    EXPECT_TRUE(gisAtEnd(layer));
    EXPECT_FALSE(next());

    gisGotoBeginningOfData(layer);
    EXPECT_FALSE(gisAtEnd(layer));
    ASSERT_TRUE(next());
    EXPECT_TRUE(object.plineMultiple);
    Text<10> record;
    gisReadRecord(layer, object, record);
    EXPECT_EQ(record, "1");
}

TEST_F(MifReader, DropsColumnsBeyondTheTable) {
    std::string mif = " Columns 9\nCOLUMNS 258 and more\n";
    for (int i = 1; i <= 258; ++i) mif += "\t f" + std::to_string(i) + "  Char(5) \n";
    open(mif + "DATA 1\nPoint 1 1\n");
    EXPECT_EQ(gisLayer(layer).mif.nAttr, 256);
    EXPECT_EQ(gisLayer(layer).mif.attrName[255], "\t");
    EXPECT_EQ(gisLayer(layer).mif.attrType[255], "f256  Char(5)");
    EXPECT_TRUE(next());
}

}  // namespace
}  // namespace vantelgis
