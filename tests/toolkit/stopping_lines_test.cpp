// The line routines that stop the run when they can't go on.
#include <string>

#include "support/in_process_run.h"
#include "support/rows.h"
#include "toolkit/lines.h"
#include "toolkit/strings.h"

namespace vantelgis {
namespace {

// The value of the keyword "key" or of column 2 in a line.
template <void (*kRoutine)(TextRef, std::string_view, std::string_view, std::string_view,
                           std::int32_t)>
std::string valueIn(std::string_view line) {
    Text<100> lower;
    LOWERCASE(lower, line);
    Text<100> out("old");
    kRoutine(out, line, lower, "Key  ", 2);
    return std::string(out.view());
}

TEST(Extract, Strings) {
    checkRows(valueIn<EXTRACTSTRING>, "x, KEY = A b , c -> A b", "key='a, b', c -> a, b",
              "key=\"it''s\"\", x\",c -> its, x", "key =a, key = b -> a", "1, \"x, y\" ,3 -> x, y",
              "'a,''b', c,d -> c", "a,b -> b", "a -> ", "a, -> ", "key = -> ");
    checkRows(valueIn<EXTRACTSTRINGREM>, "x, key = a, 'b', c  -> a, b, c", "a, b, c -> b, c",
              "a -> ");
    Text<20> out("old");
    EXTRACTSTRING(out, "a, b", "a, b", "key", 0);
    EXPECT_TRUE(out.blank());
}

TEST(Extract, Numbers) {
    EXPECT_EQ(EXTRACTINTEGER("N = 12 m", "n = 12 m", "n", 0, 5), 12);
    EXPECT_EQ(EXTRACTINTEGER("a,", "a,", "n", 2, 5), 5);
    EXPECT_EQ(EXTRACTREAL("a, 2.5e1", "a, 2.5e1", "n", 2, 5), 25);

    const auto integer = runInProcess([] { EXTRACTINTEGER("a, '2.0'", "a, '2.0'", "Rows", 2, 5); });
    EXPECT_EQ(integer.console,
              " Could not convert \"2.0\" in column  2 to an integer value for the Rows field.\n"
              "\nPress Enter to Close\n");
    const auto real = runInProcess([] { EXTRACTREAL("z=x", "z=x", "z ", 0, 5); });
    EXPECT_TRUE(real.console.starts_with(
        " Could not convert \"x\" in column  0 to a real value for the z field.\n"));
    EXPECT_TRUE(real.ended);
    const auto noEquals = runInProcess([] { EXTRACTREAL("= z", "= z", "z", 0, 5); });
    EXPECT_TRUE(
        noEquals.console.starts_with("\nERROR 0203 - No \"=\" sign found after keyword \"z\".\n"));
}

TEST(ReadLine, DropsTabsAndCommentsAndStopsAtTheEnd) {
    const auto run = runOnFile("\t a\tb ! note\r\n \t # only\n\n last", "I ", [](int unit) {
        Text<20> line;
        EXPECT_TRUE(READLINE(unit, line) && line.view() == "ab") << line.view();
        EXPECT_TRUE(!READLINE(unit, line) && line.blank());
        EXPECT_FALSE(READLINE(unit, line));
        EXPECT_TRUE(READLINE(unit, line) && line.view() == "last") << line.view();
        READLINE(unit, line);
    });
    EXPECT_TRUE(run.ended);
    EXPECT_TRUE(
        holds(run.console,
              "\nERROR 0202 - End-of-file encountered reading text line from file unit number"));
}

}  // namespace
}  // namespace vantelgis
