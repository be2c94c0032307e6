#include "archive/head.h"

#include <string>

#include "run/unit_reading.h"
#include "support/memory_calls.h"
#include "support/rows.h"

namespace vantelgis {
namespace {

// What a head tells: the version and which of the two words are set.
std::string values(std::string_view text) {
    std::string told = "stopped";
    consoleOfUnit(text, [&told](int unit) {
        told = d12ArchiveVersion(unit).view();
        if (d12NullKeyword(unit)) told += "|null";
        if (d12HexFloats(unit)) told += "|hex";
    });
    return told;
}

TEST(Head, ValuesStandAtTheirColumns) {
    checkRows(
        values, " -> ",
        "// archive_version 14.0\n// null_keyword true\n// output_hex_floats true\n -> "
        "14.0|null|hex",
        // Any order, any case of keyword and value; blank lines and null lines don't end the head.
        "// OUTPUT_HEX_FLOATS True\n\n  \nnull -999\n// null_keyword \"TRUE\"\n -> |null|hex",
        "// archive_version \"10.0\"  \n -> 10.0", "// archive_version \"\"\n -> ",
        "// archive_version \"1\"\n -> 1", "//  archive_version 9\n ->  9",
        "//null_keyword true\n//  output_hex_floats true\n -> |hex",
        "archive_version 10\n// null_keyword true\n -> ", "NULL -999\n// null_keyword true\n -> ",
        "/ archive\n// null_keyword true\n -> ", " // comment\n// null_keyword true\n -> ",
        "model \"m\"\n// null_keyword true\n -> ", "\xEF\xBB\xBF// null_keyword true\n -> |null",
        "\xEF\xBB\xBF\n\xEF\xBB\xBF// null_keyword true\n -> ",
        // The keyword lies behind what counts of the line, or its value does; the mark counts.
        "//" + std::string(14, ' ') + "true" + std::string(968, ' ') + "null_keyword\n -> |null",
        "//" + std::string(14, ' ') + "true" + std::string(969, ' ') + "null_keyword\n -> ",
        "\xEF\xBB\xBF//" + std::string(14, ' ') + "true" + std::string(966, ' ') +
            "null_keyword -> ",
        "// archive_version " + std::string(99, '1') + "23\n -> " + std::string(99, '1') + "2");
}

// The first line of the data, the null value, and what the console tells behind the opener's line.
template <bool kNullKeyword>
std::string data(std::string_view text) {
    std::string told;
    const std::string console = consoleOfUnit(text, [&told](int unit) {
        float nullValue = -99999.0F;
        std::string_view line;
        d12HexFloats(unit);  // the unit is left wherever that came to
        if (!d12FindData(unit, nullValue, kNullKeyword))
            line = "no data";
        else if (readLine(unit, line) != ReadResult::ok)
            line = {};
        told = std::string(line) + '|' + std::to_string(nullValue) + '|';
    });
    const std::string closed = "...Closed File Unit:1002\n";
    return told + console.substr(console.rfind(closed) + closed.size());
}

TEST(Head, DataBeginsBehindTheModelLine) {
    const std::string notFound =
        " -> no data|-99999.000000|\nWARNING - Problems finding start of data in .12da file\n"
        "\nPress Enter to Continue\n";
    checkRows(data<false>, " -> |-99999.000000|", "one\nMODEL x\ntwo\n -> two|-99999.000000|",
              "\xEF\xBB\xBFmodel\ntwo\n -> two|-99999.000000|", " model\ntwo\n -> |-99999.000000|",
              "null -999\nmodel\ntwo\n -> two|-999.000000|\n12D null value set to:    -999.000\n",
              "Null -1e2\nnull 0.5,7\nmodel\ntwo\n -> two|0.500000|"
              "\n12D null value set to:    -100.000\n\n12D null value set to:       0.500\n",
              "null -999\n -> |-99999.000000|",  // the file ends before the line counts
              "null\nmodel\ntwo\n" + notFound, "null x\nmodel\ntwo\n" + notFound,
              "null" + std::string(96, ' ') + "5\nmodel\n" + notFound);
    checkRows(data<true>,
              "null 5\nmodel\ntwo\n -> two|-99999.000000|"
              "\n12D null value set to keyword \"null\"\n");
}

TEST(Head, RefusesUtf16) {
    for (const std::string_view text : {"\xFF\xFEm", "\xFE\xFFm"}) {
        EXPECT_EQ(faultIn(consoleOfUnit(text, d12CheckEncoding)),
                  "ERROR - Source 12da is encoded using UTF-16");
    }
}

}  // namespace
}  // namespace vantelgis
