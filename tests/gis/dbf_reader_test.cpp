#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "gis/dbf/reader.h"
#include "run/console.h"
#include "run/unit_reading.h"
#include "support/in_process_run.h"
#include "support/rows.h"
#include "support/shape_bytes.h"

namespace vantelgis {
namespace {

// Reads the header and `records` records of a table of these bytes and prints each in brackets.
std::string readTable(const std::string& bytes, int records) {
    const RunResult run = runOnFile(bytes, "BI", [records](int unit) {
        dbfL_ dbf;
        dbf.dbfUnit = unit;
        dbfReadHeader(dbf);
        for (int i = 0; i < records; ++i) {
            Line record;
            bool endMark = false;
            dbfReadRecord(dbf, endMark, record);
            consoleLine("[", record, "]", endMark ? " end mark" : "", atEnd(unit) ? " end" : "");
        }
    });
    return run.console;
}

TEST(DbfReader, MakesALineOfARecord) {
    const std::string header = dbfHeader(4, {{"NAME", 'C', 6}, {"A B-C", 'N', 5}, {"!?", 'd', 4}});
    const std::string console =
        readTable(header + " weir    1.5 x,y" + '\0' + "      *****  z " + "*gone  12345abcd" +
                      std::string(" \0a\0\0  ", 7) + "         " + '\x1a' + "?",
                  5);
    EXPECT_TRUE(holds(console,
                      "DBF file contains 4 records.\n"
                      "3 DBF Fields (Name [#/Type/Length]): "
                      "NAME [1/C/6]  ABC [2/N/5]  X [3/d/4]  \n"
                      "[\"weir\",  1.5, x,y]\n"
                      "[\"\",0,  z]\n"));
    EXPECT_TRUE(holds(console, std::string("[\"\0a\0\0\",,]\n", 11)));
    // Three records in use, where the header counts four; behind the mark nothing else is taken.
    EXPECT_TRUE(holds(
        console,
        "WARNING 0405 - Insufficient number of records found in .dbf file.\n"
        "               Found 3, expecting 4.\n[] end mark\n"
        "\nERROR 0406 - Unrecognised record identifier found in .dbf file.\nCharacter = ? [63]\n"
        "Data line thus far =\n"));
}

TEST(DbfReader, CutsALineAtItsCapacity) {
    // Four fields of 255 make 1000 characters only in part; blanks at a cut never count.
    const std::vector<DbfField> fields(4, {"T", 'C', 255});
    const std::string field(255, 'x');
    const std::string last = std::string(200, 'y') + std::string(54, ' ') + "z";
    const std::string console =
        readTable(dbfHeader(1, fields) + " " + field + field + field + last, 1);
    const std::string quoted = '"' + field + "\",";
    EXPECT_TRUE(
        holds(console, "[" + quoted + quoted + quoted + '"' + last.substr(0, 200) + "] end\n"));
}

TEST(DbfReader, TellsWhatIsWrongWithATable) {
    const std::string header = dbfHeader(1, {{"N", 'N', 2}});
    const std::vector<DbfField> fields(129, {"N", 'N', 1});
    const std::vector<DbfField> fits(128, {"N", 'N', 255});
    const std::pair<std::string, std::string_view> rows[] = {
        {"", "ERROR 0404 - End of .dbf file encountered whilst reading header.\n"},
        {header.substr(0, 64), "ERROR 0404"},
        {dbfHeader(1, {}), "ERROR 0319 - No attributes specified in .dbf file.\n"},
        {dbfHeader(1, {{"N", 'N', 0}}),
         "ERROR 0402 - dbf field length of 0 is outside allowable range of 1 to 255.\n"},
        {dbfHeader(1, fields), "ERROR 0401 - Exceeded maximum number of dbf Fields.\n"},
        {dbfHeader(1, fits) + std::string(1 + 128 * 255, ' '), ",,] end\n"},
        {header, "ERROR 0408 - End of .dbf file encountered whilst reading record.\n"},
        {header + " 1", "ERROR 0408"},
        {header + "*12*1", "ERROR 0408"},
        {header + '\r' + " 12", "ERROR 0406"},  // one byte between terminator and records
    };
    for (const auto& [bytes, message] : rows) EXPECT_TRUE(holds(readTable(bytes, 1), message));
}

}  // namespace
}  // namespace vantelgis
