#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

#include "gpkg/colours.h"
#include "gpkg/encoding.h"
#include "gpkg/to_archive/clean_text.h"
#include "gpkg/to_package/elevation.h"
#include "gpkg/transcoding.h"
#include "gpkg/wkt.h"
#include "support/in_process_run.h"

namespace vantelgis::gpkg {

namespace {

double shortestByText(float value) {
    char text[64];
    const auto written = std::to_chars(text, text + sizeof text, value);
    double result = 0;
    std::from_chars(text, written.ptr, result);
    return result;
}

// Any finite float, and those that elevations are.
TEST(Elevation, IsTheDoubleOfTheShortestDecimal) {
    std::mt19937 dice(7);
    const auto check = [](float value) {
        ASSERT_EQ(std::bit_cast<std::uint64_t>(shortestDecimal(value)),
                  std::bit_cast<std::uint64_t>(shortestByText(value)))
            << value;
    };
    for (const float value : {12.3F, 0.0F, -0.0F, 1e-45F, 3.4e38F, 16777216.0F, 16777215.0F, 0.1F})
        check(value);
    for (int i = 0; i < 300'000; ++i) {
        const auto any = std::bit_cast<float>(static_cast<std::uint32_t>(dice()));
        if (std::isfinite(any)) check(any);
        const auto digits = static_cast<float>(static_cast<std::int32_t>(dice()) >> (dice() % 31));
        for (const float power : {1.0F, 10.0F, 100.0F, 1000.0F, 10000.0F}) check(digits / power);
    }
}

TEST(Encoding, TextsOfArchives) {
    const struct {
        std::string_view bytes;
        Encoding encoding;
        bool cut;
        std::string_view text;
    } rows[] = {
        {"a\xC3\xA9", Encoding::automatic, false, "aé"},
        {"a\xE9", Encoding::automatic, false, "aé"},
        {"\x80\x81", Encoding::automatic, false, "€\xC2\x81"},
        {"a\xC3\xA9", Encoding::windows1252, false, "aÃ©"},
        {"a\xE9z", Encoding::utf8, false, "a\xEF\xBF\xBDz"},
        {"\xED\xA0\x80\xF4\x90\x80\x80\xC0\x80", Encoding::automatic, false,
         "í\xC2\xA0€ô\xC2\x90€€À€"},  // surrogate, too large, too long: none is UTF-8
        {"a\xC3\xA9\xE2\x82", Encoding::automatic, true, "aé"},
        {"a\xC3\xA9\xE2\x82", Encoding::automatic, false, "aÃ©â‚"},
        {std::string_view("a\0b", 3), Encoding::automatic, false,
         "a\xEF\xBF\xBD"
         "b"},
        {"\xF0\x9F\x8C\x8A", Encoding::automatic, true, "🌊"},
    };
    for (const auto& row : rows) {
        std::string text;
        decode(text, row.bytes, row.encoding, row.cut);
        EXPECT_EQ(text, row.text) << row.bytes;
    }
    EXPECT_EQ(cutUtf8("aé", 2), "a");
    EXPECT_EQ(cutUtf8("aé", 3), "aé");
}

// Characters of one to four bytes lie across every border of the pieces in which files are read.
TEST(Encoding, FilesThereAndBack) {
    const WorkFolder folder;
    for (std::size_t lead = 65530; lead < 65537; ++lead) {
        const std::string text = std::string(lead, '.') + "aé€🌊" + std::string(lead / 2, '.') + "🌊";
        writeFile("a", text);
        for (const Encoding encoding : {Encoding::utf16Little, Encoding::utf16Big}) {
            EXPECT_EQ(transcodeFromUtf8("a", encoding, "b"), 0);
            EXPECT_EQ(markedEncoding("b"), encoding);
            EXPECT_EQ(transcodeToUtf8("b", encoding, "c"), 0);
            EXPECT_EQ(readFile("c"), text);
        }
        EXPECT_EQ(transcodeFromUtf8("a", Encoding::windows1252, "b"), 2);
    }
    writeFile("a", std::string_view("\xFF\xFE"
                                    "a\0\x00\xD8"
                                    "b\0\x00\xDC\x00\xD8\x00",
                                    13));
    EXPECT_EQ(transcodeToUtf8("a", Encoding::utf16Little, "b"), 4);
    EXPECT_EQ(readFile("b"),
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Wkt, TellsWhatItIs) {
    const struct {
        std::string_view text;
        bool valid, wkt2, geographic;
        std::string_view name, organization;
        int code;
    } rows[] = {
        {"PROJCS[\"a b\",\n  GEOGCS[\"g\",AUTHORITY[\"EPSG\",\"1\"]]]\n", true, false, false, "a b",
         "", 0},
        {"\xEF\xBB\xBFGEOGCS[\"g]\",AUTHORITY[\"EPSG\",\"4283\"]]", true, false, true, "g]", "EPSG",
         4283},
        {"projcs(\"p\",AUTHORITY[\"ESRI\",\"102100\"])", true, false, false, "p", "ESRI", 102100},
        {"PROJCRS[\"p\",BASEGEOGCRS[\"g\"],ID[\"EPSG\",7856]]", true, true, false, "p", "EPSG",
         7856},
        {"GEOGCRS[\"g\"]", true, true, true, "g", "", 0},
        {"COMPD_CS[\"c\",GEOGCS[\"g\"],VERT_CS[\"v\"]]", true, false, true, "c", "", 0},
        {"COMPD_CS[\"c\",PROJCS[\"p\",GEOGCS[\"g\"]],VERT_CS[\"v\"]]", true, false, false, "c", "",
         0},
        {"BOUNDCRS[SOURCECRS[GEOGCRS[\"g\"]],TARGETCRS[GEOGCRS[\"w\"]]]", true, true, true, "g", "",
         0},
        {"COMPOUNDCRS[\"c\",PROJCRS[\"p\",BASEGEOGCRS[\"g\"]]]", true, true, false, "c", "", 0},
        {"PROJCS[\"a\"", false, false, false, "", "", 0},
        {"PROJCS[\"a]", false, false, false, "", "", 0},
        {"PROJCS[\"a\"],x", false, false, false, "", "", 0},
        {"UNIT[\"m\",1]", false, false, false, "", "", 0},
        {"", false, false, false, "", "", 0},
    };
    for (const auto& row : rows) {
        CoordinateSystem system;
        ASSERT_EQ(readWkt(row.text, system), row.valid) << row.text;
        if (!row.valid) continue;
        EXPECT_EQ(system.wkt2, row.wkt2) << row.text;
        EXPECT_EQ(system.geographic, row.geographic) << row.text;
        EXPECT_EQ(system.name, row.name);
        EXPECT_EQ(system.organization, row.organization) << row.text;
        EXPECT_EQ(system.code, row.code) << row.text;
    }
}

TEST(Colours, NamesAndShades) {
    const struct {
        std::string_view name;
        int red, green, blue;  // -1: unknown
    } rows[] = {
        {"red", 255, 0, 0},           {"RED", 255, 0, 0},
        {"dark_green", 0, 141, 0},    {"Light Gray", 197, 197, 197},
        {"off yellow", 255, 255, 63}, {"sky-blue", 135, 206, 235},
        {"dark", -1, 0, 0},           {"", -1, 0, 0},
        {"reddish", -1, 0, 0},
    };
    for (const auto& row : rows) {
        const std::optional<Colour> colour = colourFromName(row.name);
        ASSERT_EQ(colour.has_value(), row.red >= 0) << row.name;
        if (!colour) continue;
        EXPECT_EQ(colour->red, row.red) << row.name;
        EXPECT_EQ(colour->green, row.green) << row.name;
        EXPECT_EQ(colour->blue, row.blue) << row.name;
    }
}

TEST(CleanText, WhatALineOfAnArchiveCanHold) {
    TextChanges changes;
    std::string room;
    EXPECT_EQ(cleanText("\"a\"\r\n///  \xFF  ", room, changes), "'a'  / / /  \xEF\xBF\xBD");
    EXPECT_EQ(changes.quotes, 2);
    EXPECT_EQ(changes.lineEnds, 2);
    EXPECT_EQ(changes.slashes, 2);
    EXPECT_EQ(cleanText("{Data} {}", room, changes), "(Data) ()");
    EXPECT_EQ(cleanText("{a}", room, changes), "{a}");
    EXPECT_EQ(changes.braces, 1);
    EXPECT_EQ(cleanText("plain text ", room, changes), "plain text");
    EXPECT_EQ(cleanText(std::string(99, 'x') + "é", room, changes), std::string(99, 'x'));
    EXPECT_EQ(cleanText(std::string(98, 'x') + "é", room, changes).size(), 100U);
    EXPECT_EQ(cleanText(std::string(101, 'x'), room, changes).size(), 100U);
    EXPECT_EQ(changes.cut, 2);
    std::string line;
    for (const std::string_view value : {"red", "dark red", "", "a{b", "-1.5", "x,y", "red  "})
        line += attributeValue(value, room, changes);
    EXPECT_EQ(line, "red\"dark red\"\"\"\"a{b\"-1.5\"x,y\"red");
}

}  // namespace

}  // namespace vantelgis::gpkg
