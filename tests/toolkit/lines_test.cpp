#include "toolkit/lines.h"

#include <string>

#include "support/in_process_run.h"
#include "support/rows.h"
#include "toolkit/messages.h"
#include "toolkit/opener.h"
#include "toolkit/strings.h"

namespace vantelgis {
namespace {

// Which commands "line|key" holds.
std::string commands(std::string_view both) {
    const auto [line, key, none] = partsOf(both);
    return std::string(READGIS(line, key) ? "r" : "") + (WRITEGIS(line, key) ? "w" : "") +
           (READROWCOL(line, key) ? "c" : "");
}

// The answer of a test that trims its line, and what is left of that.
template <bool (*kTest)(TextRef)>
std::string trimmed(std::string_view text) {
    Text<40> line(text);
    const bool answer = kTest(line);
    return (answer ? "yes [" : "no [") + std::string(line.view()) + ']';
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

TEST(Lines, Tests) {
    checkRows(commands, "  read mi z line == x|Z Line -> r", "Read GIS Code|code   -> r",
              "Read MI x, Read MI code|code -> r", "Read MI| -> r", "Read MI|code -> ",
              "Read MID code|code -> c", "Read MI  code|code -> ", "write gis code|code -> w",
              "Write MI code|code -> w", "READ ROWCOL code|code -> c", "Read GIS codes|code -> r");
    checkRows(trimmed<COMMENTLINE>, "  # text -> yes []", "value ! note # more -> no [value]",
              "  value# -> no [value]", "     -> yes []", " \t! x -> no [\t]");
    checkRows(trimmed<NUMBERLINE>, "  -x -> yes [-x]", ". -> yes [.]", "   -> yes []",
              " 7 -> yes [7]", " +1 -> no [+1]");
    checkRows(trimmed<POSITIVEINTEGERNUMBER>, "  012 -> yes [012]", "1 2 -> no [1 2]",
              "-1 -> no [-1]", "  -> no []");
    checkRows(checked<0>, "Start Time == 0|start time|== -> yes [Start Time][ 0]",
              "End Time == 0|start time|== -> no [End Time][ 0]", " == 0|*|== -> no [][ 0]",
              "Flag|flag|==   -> yes [Flag][]", "|*|== -> yes [][]",
              "key value|key|  -> no [][key value]", "key value|*| -> yes [][key value]",
              "a=b=c|A|= -> yes [a][b=c]");
    checkRows(checked<5>, " == 0|*|== -> no [][ 0]", "Flags value|flag|== -> yes [Flags][ value]",
              "     value|*| -> no [][value]", "ab|b| -> yes [ab][]");
}

// Text, what to find and its replacement, with a "|" between them, in a text of 20 characters.
template <void (*kRoutine)(TextRef, std::string_view, std::string_view, std::string_view)>
std::string replaced(std::string_view row) {
    const auto [s, find, by] = partsOf(row);
    Text<20> text(s);
    kRoutine(text, text, find, by);
    return std::string(text.view());
}

TEST(Lines, Replacements) {
    checkRows(replaced<REPLACE>, "a null b NULL|null|-9 -> a -9 b NULL", "abc|x|y -> abc",
              "abc|  |y -> abc", "abc|B  |12   -> a12c", "a null|null| -> a");
    checkRows(replaced<REPLACEALL>, "a null b NULL|null|-99999 -> a -99999 b -99999",
              "aaa|a|bc -> bcbcbc", "nnullull null x|NULL| ->   x", "a.b.c|.|.. -> a..b..c",
              "xAx|a|a -> xax", "1234567890123456789a|a|bcd -> 1234567890123456789b",
              "abc||x -> abc");
    Text<4> narrow;  // cuts what is left, not what goes in
    REPLACEALL(narrow, "aaaaaa1234", "a", "");
    EXPECT_EQ(narrow.view(), "1234");
    REPLACEALL(narrow, "aab", "ab", "bbaa");  // each step brings about the next: it must end
}

TEST(Lines, Fields) {
    checkRows(
        [](std::string_view row) {
            const auto [line, name, none] = partsOf(row);
            return std::to_string(CSVCOLUMN(line, name, 9));
        },
        "a,b,c|C -> 3", "a,b|x -> 9", "\"Time\", \"Q (m)\"|q (M) -> 2", "a,,c| -> 2", "a,| -> 2");
    // Columns 0 to 9; those that can't be read give 0.
    const float expected[] = {0, 1, 2.5F, -300, 0, 0, 0, 0, 4, 0};
    for (std::int32_t column = 0; column < 10; ++column) {
        float value = 77;
        EXPECT_EQ(CSVVALUE("1,2.5, -3e2 ,,x,1 2,/,4", column, value), expected[column] != 0);
        EXPECT_EQ(value, expected[column]) << column;
    }
    EXPECT_EQ(NUMBEROFSUBSTRINGS("a,b,", ","), 3);
    EXPECT_EQ(NUMBEROFSUBSTRINGS("   ", ","), 0);
    EXPECT_EQ(NUMBEROFSUBSTRINGS("a b", ""), 2);  // a blank as the separator
    const std::string_view fields[] = {"", "a", "b c", "", "d", "", ""};
    for (std::int32_t k = 0; k < 7; ++k) {
        Text<20> field("a;  b c;;d  ");
        SUBSTRING(field, field, ";", k);
        EXPECT_EQ(field.view(), fields[k]) << k;
    }
    checkRows([](std::string_view line) { return std::to_string(NUMBEROFNUMBERS(line)); },
              "1 2,,3 -> 4", "1 2 x -> -2", " -> 0", "x -> 0", "-1.5e3\t2 ! 3 -> 2", "1#2 -> 1",
              ",1 -> 1", ",,1 -> 2", "1 , 2 -> 2", "1,2, -> 2", "1 +2 -> -1", "e E -> 2",
              "1, , 2, 3 -> 4");
    Text<100> line(R"(  one "two ""and"" half" 'a b'c  " d" last "to the end)");
    for (const std::string_view next :
         {"one", "two and half", "a bc", "d", "last", "to the end", ""}) {
        Text<20> token("old");
        NEXTTOKEN(token, line);
        EXPECT_EQ(token.view(), next);
    }
}

// The value of the keyword "key" or of column 2 in a line.
template <void (*kRoutine)(TextRef, std::string_view, std::string_view, std::string_view,
                           std::int32_t)>
std::string valueIn(std::string_view line) {
    Text<100> lower, out("old");
    LOWERCASE(lower, line);
    kRoutine(out, line, lower, "Key  ", line == "no column" ? 0 : 2);
    return std::string(out.view());
}

TEST(Lines, KeywordValues) {
    checkRows(valueIn<EXTRACTSTRING>, "x, KEY = A b , c -> A b", "key='a, b', c -> a, b",
              "key=\"it''s\"\", x\",c -> its, x", "key =a, key = b -> a", "1, \"x, y\" ,3 -> x, y",
              "'a,''b', c,d -> c", "a,b -> b", "a -> ", "a, -> ", "key = -> ", "no column -> ");
    checkRows(valueIn<EXTRACTSTRINGREM>, "x, key = a, 'b', c  -> a, b, c", "a, b, c -> b, c",
              "a -> ");
    EXPECT_EQ(EXTRACTINTEGER("N = 12 m", "n = 12 m", "n", 0, 5), 12);
    EXPECT_EQ(EXTRACTINTEGER("a,", "a,", "n", 2, 5), 5);
    EXPECT_EQ(EXTRACTREAL("a, 2.5e1", "a, 2.5e1", "n", 2, 5), 25);
}

// A run that comes to its orderly stop, with this text in front of that.
void expectStop(const RunResult& run, std::string_view text) {
    EXPECT_TRUE(run.ended);
    EXPECT_TRUE(run.console.ends_with(std::string(text) + "\n\nPress Enter to Close\n"))
        << run.console;
}

TEST(Lines, StopsWithItsMessage) {
    expectStop(runInProcess([] { EXTRACTINTEGER("a, '2.0'", "a, '2.0'", "Rows", 2, 5); }),
               " Could not convert \"2.0\" in column  2 to an integer value for the Rows field.");
    expectStop(runInProcess([] { EXTRACTREAL("z=x", "z=x", "z ", 0, 5); }),
               " Could not convert \"x\" in column  0 to a real value for the z field.");
    expectStop(runInProcess([] { EXTRACTREAL("= z", "= z", "z", 0, 5); }),
               "\nERROR 0203 - No \"=\" sign found after keyword \"z\".");
    const auto readAll = [](int unit) {
        for (const std::string_view expected : {"ab", "", "", "last", ""}) {
            Text<20> line;
            EXPECT_EQ(READLINE(unit, line), !expected.empty());
            EXPECT_EQ(line.view(), expected);
        }
    };
    expectStop(runOnFile("\t a\tb ! note\r\n \t # only\n\n last", "I ", readAll),
               "\nERROR 0202 - End-of-file encountered reading text line from file unit number "
               "1001");
}

TEST(Messages, ARuleGoesToTheConsoleAndToAFileOpenForBothWays) {
    const WorkFolder folder;
    const std::string rule(80, '_');
    const auto run = runInProcess([] {
        int unit = 0;
        FILEOPEN(unit, "IO", "rules");
        DLINE(unit);
        CLOSER(unit);
        DLINE(unit);
    });
    // That mode opens without a word.
    EXPECT_EQ(run.console, " Trying to open file rules..." + rule + "\n...Closed File Unit:1001\n" +
                               rule + "\n");
    EXPECT_EQ(readFile("rules"), rule + "\r\n");
}

}  // namespace
}  // namespace vantelgis
