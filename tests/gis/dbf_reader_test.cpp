#include <string>

#include "support/layer_text.h"
#include "support/rows.h"
#include "support/shape_bytes.h"

namespace vantelgis {
namespace {

using std::string_literals::operator""s;

// What is read of a table of these bytes when each of `records` objects asks for its record.
std::string tableText(const std::string& bytes, int records) {
    std::string shapes = shpHeader(0, 1, {0, 0, 0, 0});
    for (int i = 1; i <= records; ++i) shapes += shpRecord(i, integers({0}));
    return layerText({{"a.shp", shapes}, {"a.dbf", bytes}}, "a.shp", 0);
}

TEST(DbfReader, MakesALineOfARecord) {
    const std::string header = dbfHeader(4, {{"NAME", 'C', 6}, {"A B-C", 'N', 5}, {"!?", 'd', 4}});
    EXPECT_EQ(tableText(header + " weir    1.5 x,y" + '\0' + "      *****  z " +
                            "*gone  12345abcd" + " \0a\0\0  "s + "         " + '\x1a' + "?",
                        5),
              "none 1: |\"weir\",  1.5, x,y\nnone 1: |\"\",0,  z\nnone 1: |\"\0a\0\0\",,\n"
              "none 1: |\nERROR 0406 - Unrecognised record identifier found in .dbf "
              "file.\nCharacter = ? [63]\nData line thus far ="s);
    EXPECT_TRUE(holds(memory::system.console,
                      "DBF file contains 4 records.\n3 DBF Fields (Name [#/Type/Length]): "
                      "NAME [1/C/6]  ABC [2/N/5]  X [3/d/4]  \n"));
    // Three records in use, where the header counts four.
    EXPECT_TRUE(holds(memory::system.console,
                      "WARNING 0405 - Insufficient number of records found in .dbf file.\n"
                      "               Found 3, expecting 4.\n"));
    // Four fields of 255 make 1000 characters only in part; blanks at a cut never count.
    const std::string field(255, 'x'), quoted = '"' + field + "\",";
    const std::string last = std::string(200, 'y') + std::string(54, ' ') + "z";
    EXPECT_EQ(tableText(dbfHeader(1, {4, {"T", 'C', 255}}) + " " + field + field + field + last, 1),
              "none 1: |" + quoted + quoted + quoted + '"' + last.substr(0, 200) + "\n");
}

// A line of only as many items as are wanted, unless an item in quotes may go on behind them.
TEST(DbfReader, EndsALineBehindTheItemsThatAreWanted) {
    const std::string table =
        dbfHeader(1, {{"N", 'N', 3}, {"C", 'C', 4}, {"M", 'N', 2}}) + " 1.5a, b 7";
    const auto lineOf = [](std::string bytes, int nItems) {
        std::string line;
        consoleOf({{"a.shp", shpHeader(0, 1, {0, 0, 0, 0})}, {"a.dbf", std::move(bytes)}}, [&] {
            const int layer = gisOpenLayer("a.shp");
            gisReadHeader(layer);
            line = gisReadRecord(layer, {}, nItems);
        });
        return line;
    };
    const std::string lines[] = {"1.5,", R"(1.5,"a, b",)", R"(1.5,"a, b", 7)"};
    for (int n = 1; n <= 4; ++n) EXPECT_EQ(lineOf(table, n), lines[std::min(n, 3) - 1]);
    std::string quoted = table;
    quoted[quoted.find("a,")] = '"';
    EXPECT_EQ(lineOf(quoted, 1), "1.5,");
    EXPECT_EQ(lineOf(quoted, 2), R"(1.5,"", b", 7)");
    quoted[quoted.find("1.5")] = '\'';
    EXPECT_EQ(lineOf(quoted, 1), R"('.5,"", b", 7)");
    EXPECT_EQ(lineOf(quoted.replace(quoted.find("'.5"), 3, 3, ' '), 1), ",");
}

TEST(DbfReader, TellsWhatIsWrongWithATable) {
    const std::string header = dbfHeader(1, {{"N", 'N', 2}});
    const std::string endOfHeader =
        "ERROR 0404 - End of .dbf file encountered whilst reading header.";
    const std::string endOfRecord =
        "ERROR 0408 - End of .dbf file encountered whilst reading record.";
    const std::pair<std::string, std::string> rows[] = {
        {"", endOfHeader},
        {header.substr(0, 64), endOfHeader},
        {dbfHeader(1, {}), "ERROR 0319 - No attributes specified in .dbf file."},
        {dbfHeader(1, {{"N", 'N', 0}}),
         "ERROR 0402 - dbf field length of 0 is outside allowable range of 1 to 255."},
        {dbfHeader(1, {129, {"N", 'N', 1}}), "ERROR 0401 - Exceeded maximum number of dbf Fields."},
        {dbfHeader(1, {128, {"N", 'N', 255}}) + std::string(1 + 128 * 255, ' '),
         "none 1: |" + std::string(127, ',') + "\n"},
        {header, endOfRecord},
        {header + " 1", endOfRecord},
        {header + "*12*1", endOfRecord},
        {header + '\r' + " 12",  // one byte between terminator and records
         "ERROR 0406 - Unrecognised record identifier found in .dbf file.\nCharacter = \r [13]\n"
         "Data line thus far ="},
    };
    for (const auto& [bytes, text] : rows) EXPECT_EQ(tableText(bytes, 1), text);
}

}  // namespace
}  // namespace vantelgis
