#include "archive/head.h"

#include <gtest/gtest.h>

#include <string>

#include "run/opener.h"
#include "run/unit_reading.h"
#include "support/in_process_run.h"

namespace vantelgis {
namespace {

const std::string kMark = "\xEF\xBB\xBF";

TEST(Head, ValuesStandAtTheirColumns) {
    struct Case {
        std::string text;
        std::string_view version;
        bool nullKeyword;
        bool hexFloats;
    };
    const Case cases[] = {
        {"", "", false, false},
        {"// archive_version 14.0\n// null_keyword true\n// output_hex_floats true\n", "14.0", true,
         true},
        // Any order, any case of keyword and value; blank lines and null lines don't end the head.
        {"// OUTPUT_HEX_FLOATS True\n\n  \nnull -999\n// null_keyword \"TRUE\"\n", "", true, true},
        {"// archive_version \"10.0\"  \n", "10.0", false, false},
        {"// archive_version \"\"\n", "", false, false},
        {"//  archive_version 9\n", " 9", false, false},
        {"//null_keyword true\n//  output_hex_floats true\n", "", false, true},
        {"archive_version 10\n// null_keyword true\n", "", false, false},
        {"NULL -999\n// null_keyword true\n", "", false, false},
        {" // comment\n// null_keyword true\n", "", false, false},
        {"model \"m\"\n// null_keyword true\n", "", false, false},
        {kMark + "// null_keyword true\n", "", true, false},
        {kMark + "\n" + kMark + "// null_keyword true\n", "", false, false},
        // The keyword lies behind what counts of the line, or its value does; the mark counts.
        {"//" + std::string(998, ' ') + "null_keyword true\n", "", false, false},
        {kMark + "//" + std::string(983, ' ') + "null_keyword true\n", "", false, false},
        {"// archive_version " + std::string(99, '1') + "23\n", "1+2", false, false},
    };
    for (const Case& c : cases) {
        const WorkFolder folder;
        writeFile("a.12da", c.text);
        Text<100> version;
        bool nullKeyword = false;
        bool hexFloats = false;
        runInProcess([&] {
            int unit = 0;
            FILEOPEN(unit, "I ", "a.12da");
            version = d12ArchiveVersion(unit);
            nullKeyword = d12NullKeyword(unit);
            hexFloats = d12HexFloats(unit);
        });
        const std::string expected =
            c.version == "1+2" ? std::string(99, '1') + "2" : std::string(c.version);
        EXPECT_EQ(version.view(), expected) << c.text;
        EXPECT_EQ(nullKeyword, c.nullKeyword) << c.text;
        EXPECT_EQ(hexFloats, c.hexFloats) << c.text;
    }
}

TEST(Head, DataBeginsBehindTheModelLine) {
    struct Case {
        std::string text;
        bool nullKeyword;
        bool found;
        float nullValue;
        std::string_view next;     // first line of the data
        std::string_view console;  // what is told of the null value
    };
    const Case cases[] = {
        {"", false, true, -99999.0F, "", ""},
        {"one\nMODEL x\ntwo\n", false, true, -99999.0F, "two", ""},
        {kMark + "model\ntwo\n", false, true, -99999.0F, "two", ""},
        {" model\ntwo\n", false, true, -99999.0F, "", ""},
        {"null -999\nmodel\ntwo\n", false, true, -999.0F, "two",
         "\n12D null value set to:    -999.000\n"},
        {"Null -1e2\nnull 0.5,7\nmodel\ntwo\n", false, true, 0.5F, "two",
         "\n12D null value set to:    -100.000\n\n12D null value set to:       0.500\n"},
        {"null 5\nmodel\ntwo\n", true, true, -99999.0F, "two",
         "\n12D null value set to keyword \"null\"\n"},
        {"null -999\n", false, true, -99999.0F, "", ""},  // the file ends before the line counts
        {"null\nmodel\ntwo\n", false, false, -99999.0F, "", ""},
        {"null x\nmodel\ntwo\n", false, false, -99999.0F, "", ""},
        {"null" + std::string(96, ' ') + "5\nmodel\n", false, false, -99999.0F, "", ""},
    };
    for (const Case& c : cases) {
        const WorkFolder folder;
        writeFile("a.12da", c.text);
        float nullValue = kNullElevation;
        bool found = false;
        std::string next;
        const RunResult run = runInProcess([&] {
            int unit = 0;
            FILEOPEN(unit, "I ", "a.12da");
            found = d12FindData(unit, nullValue, c.nullKeyword);
            std::string_view line;
            if (found && readLine(unit, line) == ReadResult::ok) next = line;
        });
        EXPECT_EQ(found, c.found) << c.text;
        EXPECT_EQ(nullValue, c.nullValue) << c.text;
        EXPECT_EQ(next, c.next) << c.text;
        const std::string expected =
            std::string(c.console) +
            (c.found ? ""
                     : "\nWARNING - Problems finding start of data in .12da file\n"
                       "\nPress Enter to Continue\n");
        const std::string closed = "...Closed File Unit:1002\n";
        EXPECT_EQ(run.console.substr(run.console.find(closed) + closed.size()), expected) << c.text;
    }
}

TEST(Head, RefusesUtf16) {
    for (const std::string text : {"\xFF\xFEm", "\xFE\xFFm"}) {
        const WorkFolder folder;
        writeFile("a.12da", text);
        const RunResult run = runInProcess([] {
            int unit = 0;
            FILEOPEN(unit, "I ", "a.12da");
            d12CheckEncoding(unit);
        });
        EXPECT_TRUE(run.ended);
        EXPECT_NE(run.console.find("\n\nERROR - Source 12da is encoded using UTF-16\n"
                                   "\nPress Enter to Close\n"),
                  std::string::npos);
    }
}

}  // namespace
}  // namespace vantelgis
