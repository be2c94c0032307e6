#include "gis/mif/writer.h"

#include <gtest/gtest.h>

#include <string>

#include "gis/layers.h"
#include "gis/operations.h"
#include "support/in_process_run.h"

namespace vantelgis {
namespace {

// Writes the object at the nodes (1,2), (3,4), ... and gives what the layer holds behind its head.
// Its parts begin at the first node and at `second`.
std::string written(bool GisObject::*kind, std::int32_t nodes, std::int32_t parts = -1,
                    std::int32_t second = 0) {
    const WorkFolder folder;
    const RunResult run = runInProcess([&] {
        gisA_.n = 0;
        int layer = gisOpenLayer("a.mif", "PLR", "O ");
        gisWriteHeader(layer);
        gisReserveNodes(nodes);
        gisN = nodes;
        for (std::int32_t i = 0; i < nodes; ++i) {
            gisX[static_cast<std::size_t>(i)] = 2 * i + 1;
            gisY[static_cast<std::size_t>(i)] = 2 * i + 2;
        }
        gisDataLine = "Data line";
        gisO_.*kind = true;
        if (parts >= 0) gisO_.nr = parts;
        if (second > 0) gisO_.ir[1] = second;
        gisWriteObject(layer, gisO_);
        gisWriteRecord(layer, gisO_);
        gisCloseLayer(layer);
    });
    const std::string text = readFile("a.mif");
    constexpr std::string_view kHead =
        "Version 300\r\nCharset \"WindowsLatin1\"\r\nDelimiter \",\"\r\n\r\nColumns "
        "0\r\nData\r\n\r\n";
    EXPECT_EQ(text.substr(0, kHead.size()), kHead);
    EXPECT_FALSE(run.ended);
    return text.substr(kHead.size());
}

// The line of node i, from 1.
std::string node(int i) {
    const std::string blanks(8, ' ');
    return blanks + std::to_string(2 * i - 1) + ".000000" + blanks + std::to_string(2 * i) +
           ".000000";
}

TEST(MifWriter, WritesEveryKind) {
    const std::string one = node(1) + "\r\n";
    const std::string two = node(2) + "\r\n";
    const std::string three = node(3) + "\r\n";
    using O = GisObject;
    EXPECT_EQ(written(&O::point, 1), "Point " + one);
    EXPECT_EQ(written(&O::multiPoint, 2), "MultiPoint 2\r\n" + one + two);
    EXPECT_EQ(written(&O::line, 2), "Line " + node(1) + two);
    EXPECT_EQ(written(&O::pline, 2), "Pline 2\r\n" + one + two);
    EXPECT_EQ(written(&O::pline, 0), "Pline 0\r\n");
    EXPECT_EQ(written(&O::plineMultiple, 3, 2, 3),
              "Pline Multiple 2\r\n 2\r\n" + one + two + " 1\r\n" + three);
    EXPECT_EQ(written(&O::plineMultiple, 1), "Pline Multiple 1\r\n 1\r\n" + one);
    EXPECT_EQ(written(&O::region, 2, 0), "Region 1\r\n 2\r\n" + one + two);
    EXPECT_EQ(written(&O::region, 3, 2, 2), "Region 2\r\n 1\r\n" + one + " 2\r\n" + two + three);
    EXPECT_EQ(written(&O::text, 3),
              "Text\r\nData line\r\n               3.000           4.000           5.000"
              "           6.000\r\n");
    EXPECT_EQ(written(&O::none, 0), "none\r\n");
}

TEST(MifWriter, GivesPointsTheTextOfTheirNode) {
    const WorkFolder folder;
    runInProcess([] {
        gisReserveNodes(3);
        gisN = 3;
        gisX[2] = 1234567890;
        gisY[2] = -0.0000004;
        gisO_.pline = true;
        int layer = gisOpenLayer("a", "L", "O ");
        gisWriteObject(layer, gisO_);
        gisWritePointAtNode(layer, 3);
        gisCloseLayer(layer);
    });
    const std::string all = readFile("a.mif");
    EXPECT_EQ(all.substr(all.find("Point")), "Point ****************       -0.000000\r\n");
}

}  // namespace
}  // namespace vantelgis
