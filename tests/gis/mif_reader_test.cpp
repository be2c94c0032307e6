#include <iterator>
#include <random>
#include <string>

#include "support/layer_text.h"
#include "support/random_inputs.h"
#include "support/rows.h"

namespace vantelgis {
namespace {

std::string mifText(std::string mif, std::int32_t reads = 99) {
    return layerText({{"a.mif", std::move(mif)}, {"a.mid", "1\n2\n3\n4\n5\n"}}, "a.MID", reads);
}

// The objects of a layer, told by their lines.
std::string objects(std::string_view lines) {
    return mifText("Columns1\nA Char(3)\nData\n" + std::string(lines));
}

TEST(MifReader, ReadsEachKind) {
    checkRows(
        objects,
        // A square with a triangle in it; behind each polygon its second vertex is repeated.
        "Region 2\n 5\n0 0\n10 0\n10 10\n0 10\n0 0\n4\n1 1\n2 1\n2 2\n1 1\n Brush(1)\nPoint 1 1\n "
        "-> "
        "region 2: 0 0, 10 0, 10 10, 0 10, 0 0, 10 0, 1 1, 2 1, 2 2, 1 1, 2 1,; e5 e10 |1\n"
        "point 1: 1 1,; |2\n",
        // A centre is taken only from the last line.
        "Region 1\n 4\n0 0\n1 0\n1 1\n0 0\n  Center 3 4\nregion 1\n4\n0 0\n1 0\n1 1\n0 0\n cENTER "
        "7 8 "
        "-> region 1: 0 0, 1 0, 1 1, 0 0, 1 0,; e4 |1\n"
        "region 1: 0 0, 1 0, 1 1, 0 0, 1 0,; e4 c7 8 |2\n",
        "Center 1 2\nNONE -> none 1:; |1\n", "Center 1 2 -> ",
        "Poin 1\nPlin "
        "2\nLin\nRegio\nMultipoin\nNon\nRec\nRoundrec\nTex\nAr\nEllips\nCollectio\nCente -> ",
        "\t point 9 10\nData\nPoint\n1,2 3\n -> "
        "point 1: 9 10,; |1\npoint 1: 1 2,; |2\n",
        "Pline 1\n5 6\nLine 0 0 -2 0\nROUNDRECT 1 2 3 4\nrect 5 6 7 8 -> pline 1: 5 6,; |1\n"
        "line 1: 0 0, -2 0,; |2\nround 1: 1 2, 3 4,; |3\nrect 1: 5 6, 7 8,; |4\n",
        "MultiPoint 2\n1 2\n3 4\nArc 1 2 3 4\n1 2\nEllipse 1 2 3 4\nText\n\"x\"\n 1 2 3 4\n -> "
        "points 2: 1 2,; 3 4,; |1\narc 1:; |2\nellipse 1:; |3\ntext 1:; |4\n",
        "Pline Multiple 2\n2\n0 0\n1 1\n0\nPoint 1 1 -> "
        "plines 2: 0 0, 1 1,;; |1\npoint 1: 1 1,; |2\n");
}

TEST(MifReader, TellsWhatIsWrong) {
    const std::string end = "ERROR 0309 - Unexpected end of .mif file encountered.";
    const std::string corrupt =
        "ERROR 0308 - Reading .mif file.  Check file format is not corrupted.";
    const std::string tooFew = "ERROR 0318 - Less than 5 points for Region object in mif file.";
    const std::string tooMany =
        "ERROR 0310 - Exceeded number of allowable nodes in a single polyline or region.\n"
        "             Requested     101        Limit     100";
    checkRows(
        objects, "Pline 2\n0 0\n1 -> pline 1:" + end, "Line 0 0 1\n -> line 1:" + end,
        "Pline\n2\n0 0\n1 1 -> pline 1:" + end, "Pline 2\n0 0\n1 one\n -> pline 1:" + corrupt,
        "Pline  Multiple 2\n2\n0 0\n1 1 -> pline 1:" + corrupt, "Pline -1 -> pline 1:" + corrupt,
        "Region x -> " + corrupt, "Region -> " + end, "Pline 101 -> pline 1:" + tooMany,
        "Region 1\n100\n -> region 1:" + tooMany,
        "Collection 2\n -> ERROR 0303 - MIF \"Collection\" objects not supported.  Delete or "
        "disaggregate object.",
        " region 10001 of them\n -> ERROR 0304 - Exceeded maximum number of polygons in region "
        "below "
        "of 10000\n region 10001 of them",
        "Region 10000\n -> region 10000:" + end, "Region 0\n -> region 0:" + tooFew,
        "Region 3\n0\n0\n0\n -> region 3:" + tooFew,  // each polygon has a node of its own
        "Region 1\n3\n0 0\n1 0\n1 1\n -> region 1:" + tooFew,
        "Region 1\n2\n0 0\n1 0\nRegion 2\n1\n5 5\n2\n6 6\n7 7\n -> region 1:" + tooFew,
        "Region 2\n1\n5 5\n2\n6 6\n7 7\n -> region 2: 5 5, 5 5, 6 6, 7 7, 7 7,; e1 e4 |1\n",
        "None\nNone\nNone\nNone\nNone\nPoint 1 1 -> none 1:; |1\nnone 1:; |2\nnone 1:; |3\n"
        "none 1:; |4\nnone 1:; |5\nERROR 0254 - Failed to read object attribute data record for a "
        "POINT object in GIS layer.");
}

TEST(MifReader, PassesOverWhatIsNotFetched) {
    const std::string mif =
        "Columns 1\nA Char(3)\nData\nPline Multiple 2\n2\n0 0\n1 1\n2\n5 5\n6 6\nPlines\nPointed";
    EXPECT_EQ(mifText(mif, 0), "plines 2: |1\npline 1: |2\npoint 1: |3\n");
    EXPECT_TRUE(mifText(mif, 1).starts_with("plines 2: 0 0, 1 1,; |1\npline 1:ERROR 0308"));
}

// Lines that begin with a tab are none of the common kinds, but mean the same.
TEST(MifReader, CommonLinesAreReadAsAnyOther) {
    constexpr std::string_view kLines[] = {"Point 1.5 -2",
                                           "  POINT 3 4  ",
                                           "point 5,6",
                                           "Point7 8",
                                           "Point 9 10 11",
                                           "Point 12",
                                           "Point 1e1 2",
                                           "Point x 1",
                                           "Pointed 1 2",
                                           "Po",
                                           "P",
                                           "Pen (1,2,0)",
                                           "",
                                           "  ",
                                           "Symbol (35,0,12)",
                                           "\"Point 1 2\"",
                                           "5 6",
                                           "Center 1 2",
                                           "Pe\xff",
                                           "Line 1 2 3 4",
                                           "None",
                                           "Rect 5 6 7 8",
                                           "Ro",
                                           "Text",
                                           "Collection 1",
                                           "Pline 0",
                                           " pline 000 ",
                                           "Pline 0x",
                                           "Pline 0 1",
                                           "Pline +0",
                                           "Pline .0",
                                           "Pline -1",
                                           "Pline 9999999999",
                                           "Pline 101",
                                           "Plines 0",
                                           "Pline Multiple 0"};
    std::mt19937_64 random(20240304);
    for (int i = randomInputs(2000); i > 0; --i) {
        std::string common, tabbed;
        for (int n = 0; n < 8; ++n) {
            std::string line(kLines[random() % std::size(kLines)]);
            line += random() % 2 == 0 ? "\n" : "\r\n";
            common += line;
            tabbed += '\t' + line;
        }
        ASSERT_EQ(objects(common), objects(tabbed)) << common;
    }
}

TEST(MifReader, ReadsHeaders) {
    const auto head = [](std::string_view lines) { return mifText(std::string(lines)); };
    const std::string noStart = "ERROR 0314 - Could not read number of attributes in .mif file";
    const std::string noData = "ERROR 0313 - Could not find start of \"Data\" block in .mif file.";
    const std::string noFields = "ERROR 0316 - Could not read attribute definitions in .mif file";
    checkRows(head, " -> " + noStart, "Version 300\n  Columns 1\n -> " + noStart,
              "Columns one\n -> " + noStart,
              "COLUMNS 0\n -> ERROR 0319 - No attributes specified in .mif file.",
              "Columns -1\n -> ERROR 0319 - No attributes specified in .mif file.",
              "columns 2\nA Float\n -> " + noFields,
              // Without the word the last line stands for it, and may have a number in its place.
              "Version 300\nPline 2\n1 1\n12345678 9\n -> " + noFields,
              "Columns 2\nA Float\nData\nPoint 1 1 -> " + noData,
              "Columns 1\nA Float\n Data\nPoint 1 1 -> " + noData,
              "Columns 1\nA Float -> " + noData,
              "Columns 1\nA Float\ndATAbase\nPoint 1 1 -> point 1: 1 1,; |1\n");
    std::string mif = " Columns 9\nCOLUMNS 258 and more\n";
    for (int i = 1; i <= 258; ++i) mif += "\t f" + std::to_string(i) + "  Char(5) \n";
    EXPECT_EQ(head(mif + "DATA 1\nPoint 1 1\n"), "point 1: 1 1,; |1\n");
    EXPECT_TRUE(
        holds(memory::system.console, "\n256 MIF Fields: Name [#/Type]: \t [1/f1  Char(5)]"));
    EXPECT_TRUE(holds(memory::system.console, "  \t [256/f256  Char(5)]  \n"));
}

}  // namespace
}  // namespace vantelgis
