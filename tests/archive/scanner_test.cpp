#include "archive/scanner.h"

#include <iterator>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "archive/vertices.h"
#include "support/memory_calls.h"
#include "support/random_inputs.h"
#include "support/rows.h"

namespace vantelgis {
namespace {

// Reads objects as a conversion does. Each gives "type,flags,name" and its vertices or what else
// came of it, such as "3d,3,A: 1 2 3; 4 5 6\n"; behind them stands what stopped the reading.
std::string objectsOf(const std::string& text, bool nullKeyword, bool hexFloats) {
    std::ostringstream told;
    const std::string console = consoleOfUnit(text, [&](int unit) {
        const Archive archive{unit, nullKeyword, hexFloats};
        D12Object o;
        ArchiveVertices v;
        for (std::string_view line; d12NextObject(unit, line, o); told << '\n') {
            told << o.typeText.view() << ',' << (o.isSuper ? "s" : "") << (o.isPolyline ? "p" : "")
                 << (o.data2d ? "2" : "") << (o.data3d ? "3" : "") << (o.hipData ? "h" : "") << ','
                 << o.name.view() << ':';
            v.count = 0;
            if (!o.data2d && !o.data3d && !o.hipData) {
                told << " ignored";
                d12PassOver(unit, line, o);
            } else if (!d12ReadVertices(archive, o, 4, v)) {
                told << " no data";
            }
            for (std::size_t i = 0; i < v.size(); ++i)
                told << (i > 0 ? "; " : " ") << v.x[i] << ' ' << v.y[i] << ' ' << v.z[i];
        }
    });
    return told.str() + faultIn(console);
}

// A header is remembered as a whole or not at all.
TEST(Scanner, KnowsAHeaderAgain) {
    const std::string body = "\ndata {\n1 2 3\n}\n", head = "string 2d {";
    const std::string longer = head + std::string(100, ' ') + "3d";
    const std::string plain = "2d,2,: 1 2 -99999\n", both = "2d,23,: 1 2 3\n";
    EXPECT_EQ(objectsOf(longer + body + head + body + head + body + longer + body + "string 4d {" +
                            body + head + body,
                        false, false),
              both + plain + plain + both + "4d,3,: 1 2 3\n" + plain);
}

void expectObjects(const std::vector<std::pair<std::string, std::string>>& rows,
                   bool nullKeyword = false, bool hexFloats = false) {
    for (const auto& [text, objects] : rows)
        EXPECT_EQ(objectsOf(text, nullKeyword, hexFloats), objects) << text;
}

// A comment counts for nothing, but with a brace and the word in it has its line read as any other.
TEST(Scanner, LinesThatSayNothingArePassedOver) {
    constexpr std::string_view kHeads[] = {"string 2d {",     "string polyline {",
                                           "string x {",      "string super {",
                                           "  string 2d {  ", "string 3d data {"};
    constexpr std::string_view kLines[] = {
        "name \"A\"", "  NAME B ",    "\tname C",   "name",       "z 5",        "Z 7",
        "z x",        "closed 0",     "chainage 0", "colour red", "data",       "",
        "data_3d",    "attributes {", "}",          "  data {",   "text \"k\"", " // name D",
        "   ",        "/x",           "1 2 3",      "data_2d {",  "hipdata {",  "data {",
        "} 1",        "data { 1",     "name E/F",   "name \"\"",  "{ data_3d",  "name \"G"};
    constexpr std::string_view kNames[] = {R"(name "A//B")", R"(name "C""D")", R"( Name "E F " )"};
    std::mt19937_64 random(20240305);
    for (int i = randomInputs(2000); i > 0; --i) {
        std::string plain, commented;
        const auto add = [&](std::string_view line) {
            const char* const end = random() % 2 == 0 ? "\n" : "\r\n";
            plain.append(line) += end;
            commented.append(line).append("//{data") += end;
        };
        for (int n = 0; n < 12; ++n) {
            if (n % 6 == 0) add(kHeads[random() % std::size(kHeads)]);
            add(kLines[random() % std::size(kLines)]);
            if (n % 6 == 1) add(kNames[random() % std::size(kNames)]);
        }
        ASSERT_EQ(objectsOf(plain, false, false), objectsOf(commented, false, false)) << plain;
    }
}

TEST(Scanner, CountsAThousandCharactersOfALine) {
    const std::string body = "\ndata {\n1 2 3\n}\n", head = "string 2d {";
    const auto withWordUpTo = [&](std::size_t column) {
        return objectsOf(head + std::string(column - head.size() - 2, ' ') + "3d" + body, false,
                         false);
    };
    EXPECT_EQ(withWordUpTo(1000), "2d,23,: 1 2 3\n");
    EXPECT_EQ(withWordUpTo(1001), "2d,2,: 1 2 -99999\n");
}

TEST(Scanner, TakesStringsByTheirWords) {
    expectObjects({
        {"string 2d {\nname \"XS 1\"\nz 12.5\ndata {\n1 2\n3 4\n}\n}\n",
         "2d,2,XS 1: 1 2 12.5; 3 4 12.5\n"},
        {"  STRING 3D {  // comment\n// name N\n\nDATA {\n 1 2 3\n}\n", "3D,3,: 1 2 3\n"},
        {"string 3d\n{\nstring\ndata {\n1 2 3\n}\n", ""},
        {"my string face {\ndata {\n}\n", "ng face,3,:\n"},
        {"string 2d{\ndata {\n1 2\n}\n", "2,2,: 1 2 -99999\n"},
        {"string{ 4d\ndata {\n1 2 3\n}\n", ",3,: 1 2 3\n"},
        {"string drainage data {\n1 2 3\n}\n", "drainage data,3,: 1 2 3\n"},
        {"string abcdefghijklmnopqrst uvw {\ndata {\n}\n", "abcdefghijklmnopqrst,,: ignored\n"},
        {"string alignmen drainag fac pip supe polylin {\ndata {\n}\n",
         "alignmen drainag fac,,: ignored\n"},
        {"strin 3d {\ndata {\n1 2 3\n}\nstring 3d {\ndat {\ndata {\n4 5 6\n}\n", "3d,3,: 4 5 6\n"},
        // A pipeline holds the word pipe, so it has three numbers, as the wider form wins.
        {"string pipeline {\nz 5\ndata {\n1 2 3\n}\n", "pipeline,23,: 1 2 3\n"},
        {"string alignment {\nz 5\ndata {\n1 2 3\n}\n", "alignment,2,: 1 2 5\n"},
        {"string text {\ndata {\n1 2\n}\n}\nstring 3d {\ndata {\n1 2 3\n}\n",
         "text,,: ignored\n3d,3,: 1 2 3\n"},
        {"string super {\ndata_2d", "super,s2,: no data\n"},
        {"string super {\ncolour", "super,s,: ignored\n"},
    });
}

TEST(Scanner, ReadsNamesInFreeFormat) {
    const std::string data = "\ndata {\n}\n}\n";
    std::string text;
    for (const char* line : {"// none", "nam E", "name \"A B\"", "style 1", "name A B", "NAMED B",
                             "name /C", "name ,D", "name \"E//F\"", "name G/H", "name \"\""})
        text += "string 3d {\n" + (line + data);
    expectObjects(
        {{text,
          "3d,3,:\n3d,3,:\n3d,3,A B:\n3d,3,A B:\n3d,3,A:\n3d,3,D:\n3d,3,D:\n3d,3,D:\n3d,3,E:\n"
          "3d,3,G:\n3d,3,:\n"}});
}

TEST(Scanner, ClosesPolylines) {
    const auto polyline = [](const std::string& closed) {
        return "string 3d polyline {\n" + closed + "\ndata {\n1 2 3\n4 5 6\n}\n";
    };
    const std::string open = "3d polyline,p3,: 1 2 3; 4 5 6\n";
    const std::string closed = "3d polyline,p3,: 1 2 3; 4 5 6; 1 2 3\n";
    for (const char* line :
         {"", "close 0", "closed 1", "CLOSED   true", "closedYes", "closed 0\nclosed yes"})
        expectObjects({{polyline(line), closed}});
    for (const char* line : {"closed 0", "closed", "closed \"true\""})
        expectObjects({{polyline(line), open}});
    expectObjects({
        {"string 3d {\nclosed 1\ndata {\n1 2 3\n}\n", "3d,3,: 1 2 3\n"},
        {"string polyline {\ndata {\n}\n", "polyline,p3,: 0 0 -99999\n"},
        {"string polyline {\ndata {\n1 2 3\n}\nstring polyline {\ndata {\n}\n",
         "polyline,p3,: 1 2 3; 1 2 3\npolyline,p3,: 0 0 -99999\n"},
        {"string polyline {\ndata {\n1 2 3\n4 5 6\n7 8 9\n0 0 0\n}\n",
         "polyline,p3,: 1 2 3; 4 5 6; 7 8 9; 0 0 0; 1 2 3\n"},
    });
}

TEST(Scanner, TakesSuperStringsBlockByBlock) {
    const std::string last = "}\nstring 3d {\ndata {\n7 8 9\n}\n";
    const std::string lastTold = "3d,3,S: 7 8 9\n";
    const std::string head = "string super {\nname S\nz 4\n";
    expectObjects({
        {head + "data_2d {\n1 2\n}\ndata_3d {\n1 2 3\n}\nhipdata {\n4 5 6\n}\n" + last,
         "super,s2,S: 1 2 4\nsuper,s3,S: 1 2 3\nsuper,sh,S: 4 5 6\n" + lastTold},
        {head + "data_2d {\n1 2\n}\ntext {\nnote {\n}\n}\nattribute 1\ndata_2d {\n3 4\n}\n" + last,
         "super,s2,S: 1 2 4\nsuper,s2,S: 3 4 -99999\n" + lastTold},
        // Both braces on a line count as the closing one, which ends the search for more blocks.
        {head + "data_2d {\n1 2\n}\ntext { }\ndata_2d {\n3 4\n}\n" + last,
         "super,s2,S: 1 2 4\n" + lastTold},
        // A further block of unknown kind is passed over up to its first closing brace.
        {head + "data_2d {\n1 2\n}\nuv_data {\n{\n3\n}\ndata_3d {\n4 5 6\n}\n" + last,
         "super,s2,S: 1 2 4\nsuper,s,S: ignored\nsuper,s3,S: 4 5 6\n" + lastTold},
        {head + "data_2d {\n1 2\n}\nuv_data { }\ndata_3d {\n4 5 6\n}\n" + last,
         "super,s2,S: 1 2 4\nsuper,s,S: ignored\nsuper,s3,S: 4 5 6\n" + lastTold},
        {head + "data_2d {\n1 2\n}\nuv_data {\n3\n", "super,s2,S: 1 2 4\nsuper,s,S: ignored\n"},
        // A first block of unknown kind is left to the search for the next string.
        {head + "uv_data {\n3\n}\ndata_3d {\n4 5 6\n}\n" + last, "super,s,S: ignored\n" + lastTold},
        {head + "data_2d {\n1 2\n", "super,s2,S:\n"},
    });
}

TEST(Scanner, ReadsVertexLines) {
    const auto block = [](const std::string& lines) {
        return "string 3d {\ndata {\n" + lines + "}\n";
    };
    const std::string blanks(60, ' ');
    expectObjects({
        {block("1 2 3 // 4\n  +1.5,-2,3d1\n\n // none\n1 2 3//}\n0x1.8p+1 .5 6. and more\n"),
         "3d,3,: 1 2 3; 1.5 -2 30; 1 2 3; 3 0.5 6\n"},
        {block("1 2 3 null\n1 2 3 /x\n1 2 3} text\n4 5 6\n"), "3d,3,: 1 2 3; 1 2 3\n"},
        {block("1 2 3\n4 5 6 }\n7 8 9\n"), "3d,3,: 1 2 3\n"},
        {block("1 2 /\n7 8 9\n") + block("/\n1,,2\n"),
         "3d,3,: 1 2 -99999; 7 8 9\n3d,3,: 0 0 -99999; 1 8 2\n"},
        {"string 2d {\ndata {\n1 2 3\n4 5 null\n6 7/\n8 9 }\n",
         "2d,2,: 1 2 -99999; 4 5 -99999; 6 7 -99999\n"},
        // The line with which the file ends is no vertex, whatever it holds.
        {"string 3d {\ndata {\n1 2 3\n4 5 6\n", "3d,3,: 1 2 3\n"},
        {"string 3d {\ndata {\n1 2 3\n4 5 6\n\n", "3d,3,: 1 2 3; 4 5 6\n"},
        {"string 3d {\ndata {\n1 2 3\nword", "3d,3,: 1 2 3\n"},
        {"string 3d {\ndata {\n1 2 3", "3d,3,:\n"},
        {"string 3d {\ndata {\n// 1 2 3\n", "3d,3,: no data\n"},
    });
    expectObjects({{block("1 2 null\nNULL Null 3\n1 2 3 null\n1 2 Null // note\n"),
                    "3d,3,: 1 2 -99999; -99999 -99999 3; 1 2 3; 1 2 -99999\n"}},
                  true);
    // With the number in the place of the word a line counts up to its 100th character.
    expectObjects({{block("1 2" + blanks + std::string(31, ' ') + "null\n1 2" + blanks +
                          std::string(32, ' ') + "null\n"),
                    "3d,3,: 1 2 -99999; 1 2 -9999\n"}},
                  true);
    expectObjects({{block("1 2 null\n1 2" + blanks + std::string(15, ' ') + "null\n1 2" + blanks +
                          std::string(19, ' ') + "null\n"),
                    "3d,3,: 1 2 -99999; 1 2 -99999; 1 2 -1.52586\n"}},
                  true, true);
}

TEST(Scanner, StopsAtWhatCannotBeRead) {
    const std::string erroneous = "ERROR - Reading .12da file.  Erroneous line is:\n";
    const std::string tooFew = "ERROR - Unexpected end of .12da file encountered.";
    const std::string inHeader = "ERROR - Reading data (d12ObjectType)\n";
    expectObjects({
        {"string 3d {\ndata {\n  1 two 3  // note\n}\n", "3d,3,:" + erroneous + "1 two 3"},
        {"string 3d {\ndata {\n1 2 nan\n}\n", "3d,3,:" + erroneous + "1 2 nan"},
        {"string 3d {\ndata {\n1 2 null\n}\n", "3d,3,:" + erroneous + "1 2 null"},
        {"string 2d {\ndata {\n1 null\n}\n", "2d,2,:" + erroneous + "1 null"},
        {"string 3d {\ndata {\n\t1 2 3\n}\n", "3d,3,:" + erroneous + "\t1 2 3"},
        {"string 3d {\ndata {\n1 2\n}\n", "3d,3,:" + tooFew},
        {"string 2d {\ndata {\n1 //2\n}\n", "2d,2,:" + tooFew},
        {"string 3d {\ndata {\n1 2" + std::string(10000, ' ') + "3\n}\n", "3d,3,:" + tooFew},
        {"string 3d {\nname\n}\n", inHeader + "name"},
        {"string 3d {\n z one // note\n}\n", inHeader + "z one"},
        {"string 3d {\nZone 1\n}\n", inHeader + "Zone 1"},
        {"string 3d {\ndata {\n1 2 3\n1 2 3\n1 2 3\n1 2 3\nword\n}\n",
         "3d,3,:ERROR - Exceeded number of allowable nodes in a single polyline or region.\n"
         "        Requested       5        Limit       4"},
    });
}

}  // namespace
}  // namespace vantelgis
