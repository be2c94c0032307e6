#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "gis/layers.h"
#include "gis/operations.h"
#include "support/fresh_start.h"
#include "support/in_process_run.h"

namespace vantelgis {
namespace {

const std::string kHead = "Columns 1\nA Char(3)\nData\n";

class MifReader : public testing::Test {
  protected:
    MifReader() { freshStart(); }
    ~MifReader() override { freshStart(); }
    // Opens a layer of this text and reads its header.
    void open(const std::string& mif) {
        writeFile("a.mif", mif);
        writeFile("a.mid", "1\n2\n3\n4\n5\n6\n7\n8\n9\n");
        layer = gisOpenLayer("a.MID", {}, "I ");
        gisReadHeader(layer);
    }
    bool next() { return gisObjectType(layer, object); }
    // The vertices of the next object.
    std::string read() {
        if (!next()) return "none";
        gisReadObject(layer, object, nodes);
        std::ostringstream told;
        for (std::size_t i = 0; i < static_cast<std::size_t>(nodes.n); ++i)
            told << (i > 0 ? ", " : "") << nodes.x[i] << ' ' << nodes.y[i];
        return told.str();
    }

    WorkFolder folder;
    int layer = 0;
    GisObject object;
    ObjectNodes nodes{100};
};

TEST_F(MifReader, KeepsRegionsPolygonByPolygon) {
    // A square with a triangle in it; behind each polygon its second vertex is repeated.
    open(kHead + "Region 2\n 5\n0 0\n10 0\n10 10\n0 10\n0 0\n4\n1 1\n2 1\n2 2\n1 1\n Brush(1)\n" +
         "Point 1 1\n");
    EXPECT_EQ(read(), "0 0, 10 0, 10 10, 0 10, 0 0, 10 0, 1 1, 2 1, 2 2, 1 1, 2 1");
    EXPECT_TRUE(object.region && object.ir[0] == 5 && object.ir[1] == 10);
    // The mean of all nodes but the last two: x 0 10 10 0 0 10 1 2 2, y 0 0 10 10 0 0 1 1 2.
    EXPECT_DOUBLE_EQ(nodes.xc, 35.0 / 9);
    EXPECT_DOUBLE_EQ(nodes.yc, 24.0 / 9);
    EXPECT_TRUE(next() && object.point);
}

TEST_F(MifReader, TakesTheCentreOfARegionOnlyFromTheLastLine) {
    const std::string square = "Region 1\n 5\n0 0\n10 0\n10 10\n0 10\n0 0\n";
    open(kHead + square + "  Center 3 4\n" + square + "    cENTER 7 8");
    EXPECT_EQ(read(), "0 0, 10 0, 10 10, 0 10, 0 0, 10 0");
    EXPECT_EQ(nodes.xc, 5.0);  // the mean of the first four vertices
    read();
    EXPECT_TRUE(nodes.xc == 7.0 && nodes.yc == 8.0 && gisAtEnd(layer));
}

TEST_F(MifReader, MeasuresLinesInSinglePrecision) {
    open(kHead + "Pline 3\n0 0\n3 4\n3 14\nPline 1\n5 6\nLine 0 0 -2 0\nPline 2\n1 1\n1 1\n");
    EXPECT_EQ(read(), "0 0, 3 4, 3 14");
    // 5 and 10: the middle lies 2.5 up the second segment.
    EXPECT_TRUE(nodes.length == 15.0F && nodes.angle == 90.0F);
    EXPECT_DOUBLE_EQ(nodes.xc, 3);
    EXPECT_DOUBLE_EQ(nodes.yc, 6.5);
    EXPECT_EQ(read(), "5 6");
    EXPECT_EQ(nodes.length, 0.0F);
    EXPECT_EQ(read(), "0 0, -2 0");
    EXPECT_TRUE(nodes.xc == -1.0 && nodes.angle == 180.0F && nodes.length == 2.0F);
    EXPECT_EQ(read(), "1 1, 1 1");
}

TEST_F(MifReader, PassesOverWhatTheCallerDoesNotFetch) {
    open(kHead + "Pline Multiple 2\n2\n0 0\n1 1\n2\n5 5\n6 6\nplines 2\n7 7\n8 8\n" +
         "\t point 9 10\nData\nNONE");
    EXPECT_EQ(read(), "0 0, 1 1");
    EXPECT_TRUE(object.nSections == 2 && object.objName == "PLINE MULTIPLE");
    EXPECT_TRUE(next() && object.pline && !object.plineMultiple);
    read();
    EXPECT_TRUE(nodes.yc == 10.0 && nodes.x[1] == 9.0);
    EXPECT_TRUE(next() && object.none);
    EXPECT_TRUE(gisAtEnd(layer) && !next());

    gisGotoBeginningOfData(layer);
    EXPECT_TRUE(!gisAtEnd(layer) && next() && object.plineMultiple);
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
