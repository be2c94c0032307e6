#include <string>

#include "support/rows.h"
#include "toolkit/lines.h"

namespace vantelgis {
namespace {

// Which commands "line|key" holds.
std::string commands(std::string_view both) {
    const auto [line, key, none] = partsOf(both);
    return std::string(READGIS(line, key) ? "r" : "") + (WRITEGIS(line, key) ? "w" : "") +
           (READROWCOL(line, key) ? "c" : "");
}

TEST(Lines, Commands) {
    checkRows(commands, "  read mi z line == x|Z Line -> r", "Read GIS Code|code   -> r",
              "Read MI x, Read MI code|code -> r", "Read MI| -> r", "Read MI|code -> ",
              "Read MID code|code -> c", "Read MI  code|code -> ", "write gis code|code -> w",
              "Write MI code|code -> w", "READ ROWCOL code|code -> c", "Read GIS codes|code -> r");
}

// The answer of a test that trims its line, and what is left of that.
template <bool (*kTest)(TextRef)>
std::string trimmed(std::string_view text) {
    Text<40> line(text);
    const bool answer = kTest(line);
    return (answer ? "yes [" : "no [") + std::string(line.view()) + ']';
}

TEST(Lines, TestsThatTrim) {
    checkRows(trimmed<COMMENTLINE>, "  # text -> yes []", "value ! note # more -> no [value]",
              "  value# -> no [value]", "     -> yes []", " \t! x -> no [\t]");
    checkRows(trimmed<NUMBERLINE>, "  -x -> yes [-x]", ". -> yes [.]", "   -> yes []",
              " 7 -> yes [7]", " +1 -> no [+1]");
    checkRows(trimmed<POSITIVEINTEGERNUMBER>, "  012 -> yes [012]", "1 2 -> no [1 2]",
              "-1 -> no [-1]", "  -> no []");
}

// The answer of CHECKLINE to "line|key|separator", with left side and value. The value goes back
// into the line's own string.
template <std::int32_t kColumn>
std::string checked(std::string_view row) {
    const auto [text, key, separator] = partsOf(row);
    Text<40> line(text), left;
    const bool answer = CHECKLINE(line, key, separator, kColumn, line, left);
    return (answer ? "yes [" : "no [") + std::string(left.view()) + "][" +
           std::string(line.view()) + ']';
}

TEST(Lines, ConfigurationLines) {
    checkRows(checked<0>, "Start Time == 0|start time|== -> yes [Start Time][ 0]",
              "End Time == 0|start time|== -> no [End Time][ 0]", " == 0|*|== -> no [][ 0]",
              "Flag|flag|==   -> yes [Flag][]", "|*|== -> yes [][]",
              "key value|key|  -> no [][key value]", "key value|*| -> yes [][key value]",
              "a=b=c|A|= -> yes [a][b=c]");
    checkRows(checked<5>, " == 0|*|== -> no [][ 0]", "Flags value|flag|== -> yes [Flags][ value]",
              "     value|*| -> no [][value]", "ab|b| -> yes [ab][]");
}

TEST(Lines, CommaSeparated) {
    EXPECT_EQ(CSVCOLUMN("a,b,c", "C", 9), 3);
    EXPECT_EQ(CSVCOLUMN("a,b", "x", 9), 9);
    EXPECT_EQ(CSVCOLUMN("\"Time\", \"Q (m)\"", "q (M)", 9), 2);
    EXPECT_EQ(CSVCOLUMN("a,,c", "", 9), 2);
    EXPECT_EQ(CSVCOLUMN("a,", "", 9), 2);

    // Columns 0 to 9; those that can't be read give 0.
    const float expected[] = {0, 1, 2.5F, -300, 0, 0, 0, 0, 4, 0};
    for (std::int32_t column = 0; column < 10; ++column) {
        float value = 77;
        EXPECT_EQ(CSVVALUE("1,2.5, -3e2 ,,x,1 2,/,4", column, value), expected[column] != 0);
        EXPECT_EQ(value, expected[column]) << column;
    }
}

TEST(Lines, Tokens) {
    Text<100> line(R"(  one "two ""and"" half" 'a b'c  " d" last "to the end)");
    for (const std::string_view expected :
         {"one", "two and half", "a bc", "d", "last", "to the end", ""}) {
        Text<20> token("old");
        NEXTTOKEN(token, line);
        EXPECT_EQ(token.view(), expected);
    }
    EXPECT_TRUE(line.blank());
}

TEST(Lines, Substrings) {
    EXPECT_EQ(NUMBEROFSUBSTRINGS("a,b,", ","), 3);
    EXPECT_EQ(NUMBEROFSUBSTRINGS("   ", ","), 0);
    EXPECT_EQ(NUMBEROFSUBSTRINGS("a b", ""), 2);  // a blank as the separator

    const std::string_view fields[] = {"", "a", "b c", "", "d", "", ""};
    for (std::int32_t k = 0; k < 7; ++k) {
        Text<20> field("a;  b c;;d  ");
        SUBSTRING(field, field, ";", k);
        EXPECT_EQ(field.view(), fields[k]) << k;
    }
}

TEST(Lines, CountOfNumbers) {
    checkRows([](std::string_view line) { return std::to_string(NUMBEROFNUMBERS(line)); },
              "1 2,,3 -> 4", "1 2 x -> -2", " -> 0", "x -> 0", "-1.5e3\t2 ! 3 -> 2", "1#2 -> 1",
              ",1 -> 1", ",,1 -> 2", "1 , 2 -> 2", "1,2, -> 2", "1 +2 -> -1", "e E -> 2",
              "1, , 2, 3 -> 4");
}

}  // namespace
}  // namespace vantelgis
