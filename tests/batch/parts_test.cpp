#include <gtest/gtest.h>

#include "batch/inputs/globs.h"
#include "batch/json.h"
#include "batch/look/coordinate_system.h"
#include "batch/look/drawing.h"
#include "batch/messages.h"
#include "batch/record.h"
#include "batch/utf8.h"

namespace vantelgis::batch {

namespace {

TEST(Json, BringsEveryTextBack) {
    for (const std::string text :
         {"", "plain", "\"\\/\b\f\n\r\t\x01\x7f", "\xC3\xBC\xE2\x82\xAC\xF0\x9F\x98\x80",
          "\xFF\x80\xC3", "\xED\xB2\x80\xE0\x80\x80", "a,b:{}[]"}) {
        std::string json;
        JsonWriter(json).text(text);
        EXPECT_EQ(JsonReader(json).text(), text) << json;
        EXPECT_EQ(utf8Length(json), 1U);
    }
    EXPECT_EQ(JsonReader("\"\\u00fc\\ud83d\\ude00\\/\"").text(), "\xC3\xBC\xF0\x9F\x98\x80/");
}

TEST(Json, FailsInOrder) {
    for (const std::string text :
         {"", "{", "[", "{\"a\"", "{\"a\":", "{\"a\":1", "{\"a\":1,", "{a:1}", "\"a", "\"\\x\"",
          "\"\\u12\"", "[1 2]", "[1,]", "nul", "{\"a\":\"b}", "[[[[[", "\"\\ud83d\""}) {
        JsonReader json(text);
        json.skip();
        EXPECT_TRUE(json.failed()) << text;
    }
    const std::string brackets(100'000, '[');
    JsonReader deep(brackets);
    deep.skip();
    EXPECT_TRUE(deep.failed());
    JsonReader good(" { \"a\" : [ 1 , -2.5e3 , true , null , { } , [ ] ] } ");
    good.skip();
    EXPECT_FALSE(good.failed());
}

TEST(ARecord, IsTheSameBehindItsLine) {
    Record record;
    record.number = 7;
    record.input = "a\nb\xFF.mif";
    record.verdict = Verdict::notRun;
    record.seconds = 0.25;
    record.box.add(1, 2);
    record.findings = {{"z", Level::warning, "words", "cure"}};
    record.addCount("dangles", 3);
    record.addCount("none", 0);
    record.files = {"x", "y"};
    record.plan = "1 2 3 4\n";
    const std::string line = recordLine(record, true);
    EXPECT_EQ(line.find('\n'), std::string::npos);
    Record again;
    ASSERT_TRUE(readRecord(line, again));
    EXPECT_EQ(recordLine(again, true), line);
    EXPECT_EQ(again.input, record.input);
    EXPECT_EQ(again.counts.size(), 1U);
    for (std::size_t length = 0; length < line.size(); ++length)
        EXPECT_FALSE(readRecord(line.substr(0, length), again)) << length;
}

TEST(AGlob, FitsNames) {
    const struct {
        std::string_view glob, name;
        bool fits;
    } kRows[] = {
        {"*.mif", "a.mif", true}, {"*.mif", "a.mid", false},  {"*", "", true},
        {"?", "", false},         {"a?c", "abc", true},       {"a?c", "a/c", false},
        {"*", "a/b", false},      {"a*/b", "axx/b", true},    {"[a-c]x", "bx", true},
        {"[!a-c]x", "bx", false}, {"[!a-c]x", "dx", true},    {"[]]", "]", true},
        {"[a", "[a", true},       {"**a*", "banana", true},   {"*a*a*a*", "banan", false},
        {"[a-]", "-", true},      {"a*b*c", "aXbYbZc", true}, {"[!]", "!", false},
    };
    for (const auto& row : kRows)
        EXPECT_EQ(fitsGlob(row.glob, row.name), row.fits) << row.glob << " " << row.name;
}

TEST(Texts, AreShortenedByCharacters) {
    EXPECT_EQ(shortened("abcdefg", 7), "abcdefg");
    EXPECT_EQ(shortened("abcdefgh", 5), "ab\xE2\x80\xA6gh");
    EXPECT_EQ(shortened("\xC3\xBC\xC3\xBC\xC3\xBC", 2), "\xC3\xBC\xE2\x80\xA6");
    EXPECT_EQ(columnsOf(readable("\xC3\xBC\xFF\n")), 3U);
    EXPECT_EQ(readable("\x1B[31m"), "\xEF\xBF\xBD[31m");
}

TEST(CoordinateSystems, AreTheSameByWhatTheySay) {
    const std::string merc =
        R"(PROJCS["A",PROJECTION["Mercator"],PARAMETER["central_meridian",147.0]])";
    const struct {
        std::string_view a, b;
        bool same;
    } kRows[] = {
        {merc,
         R"(PROJCS["B",PROJECTION["mercator"],PARAMETER["Central_Meridian", 147],UNIT["m",1]])",
         true},
        {merc, R"(PROJCS["A",PROJECTION["Mercator"],PARAMETER["central_meridian",153]])", false},
        {"CoordSys Earth Projection 8, 33", "coordsys  earth projection 8,33 Bounds (0,0) (1,1)",
         true},
        {"CoordSys Earth Projection 8, 33", "CoordSys Earth Projection 8, 34", false},
        {"PROJCS[\"A\"]", "PROJCS[\"B\"]", false},
    };
    for (const auto& row : kRows)
        EXPECT_EQ(sameCoordinateSystem(row.a, row.b), row.same) << row.a << row.b;
    EXPECT_TRUE(isGeographic("CoordSys Earth Projection 1, 104"));
    EXPECT_FALSE(isGeographic("CoordSys Earth Projection 12, 104"));
}

TEST(Messages, AreKnownByTheirTexts) {
    const struct {
        std::string_view line;
        bool error;
    } kRows[] = {
        {"ERROR 0423 - Unsupported .shp object type PointZ [11]", true},
        {"XS_1, ab, ERROR - XS ID exceeds 12 characters.", true},
        {"ERROR - Reading data", true},
        {"ERROR 1, XS_2, ", false},
        {"ERROR - no such text", false},
        {"no ERROR - Reading data", false},
        {"WARNING - Found unsnapped points.", false},
    };
    for (const auto& row : kRows)
        EXPECT_EQ(findErrorMessage(row.line) != std::string_view::npos, row.error) << row.line;
    EXPECT_EQ(findErrorMessage(kRows[1].line), 10U);
    EXPECT_NE(helpForMessage(kRows[0].line).cure.find("ogr2ogr -dim XY"), std::string::npos);
}

TEST(ADrawing, StaysSmall) {
    Drawing drawing;
    drawing.want();
    std::vector<double> x, y;
    for (int line = 0; line < 3000; ++line) {
        x.clear();
        y.clear();
        for (int i = 0; i < 200; ++i) {
            x.push_back(line);
            y.push_back(i * 0.5);
        }
        drawing.add(Shown::converted, x, y);
    }
    const double end = 50;
    drawing.add(Shown::danglingEnd, {&end, 1}, {&end, 1});
    const std::string text = drawing.text(20'000);
    EXPECT_LT(text.size(), 21'000U);
    EXPECT_EQ(text.substr(0, text.find('\n')), "0 99.5 2999 33");
    EXPECT_NE(text.find("\n3:M17 17h0\n"), std::string::npos);
    EXPECT_TRUE(Drawing().text(100).empty());
}

}  // namespace

}  // namespace vantelgis::batch
