#include "text/strings.h"

#include <string>

#include "text/line_tests.h"
#include "text/replace.h"
#include "text/rows.h"

namespace vantelgis {
namespace {

// What a routine makes of a string of capacity 10, in place or not.
template <void (*kRoutine)(TextRef, std::string_view)>
std::string changed(std::string_view text) {
    Text<10> out("old");
    kRoutine(out, text);
    Text<10> inPlace(text);
    kRoutine(inPlace, inPlace);
    return std::string(out.view() == inPlace.view() ? out.view() : "another result in place");
}

TEST(Strings, Changes) {
    checkRows(changed<TRIMF>, {"  a b   -> a b", "     -> ", "\t a -> \t a"});
    checkRows(changed<REMOVETABS>, {"\ta\t b\t -> a b", "\t \t -> "});
    checkRows(changed<REMOVEQUOTES>, {"\"it's\" \"\" -> its"});
    checkRows(changed<REMOVESPACES>, {" a b\tc  -> ab\tc"});
    checkRows(changed<DOUBLEQUOTE>,
              {"\"a\" 'b' -> \"\"a\"\" 'b'", "\"\"\"abcdef -> \"\"\"\"\"\"abcd",
               "12345678 \" -> 12345678 \""});
    checkRows(changed<UPPERCASE>, {"aZ[\xE4{z -> AZ[\xE4{Z"});
    checkRows(changed<LOWERCASE>, {"az[\xC4@A -> az[\xC4@a"});
}

TEST(Strings, CleanNames) {
    // The fill stands in front of the name; "0" there is the zero byte.
    const auto only = [](std::string_view row) {
        Text<12> out(row.substr(1));
        const char fill = row.front() == '0' ? '\0' : row.front();
        ALPHANUMERICONLY(out, out, {&fill, 1});
        return std::string(out.view());
    };
    checkRows(only, {"_a-b -> a_b", "0--- -> X", "0a-b c1 -> abc1", " -.- -> X", "_ -> X",
                     " C:\\flood\\l   -> C  flood l"});
    Text<12> out;
    ALPHANUMERICONLY(out, "a-b", "");
    EXPECT_EQ(out.view(), "a b");

    const auto attribute = [](std::string_view s) {
        Text<20> name;
        CLEANATTRIBUTENAME(name, s, 10);
        return std::string(name.view());
    };
    checkRows(attribute, {"Max_h (m) -> Max_hm", "ABCDEFGHIJKL -> ABCDEFGHIJ", "() -> X"});
    EXPECT_EQ(attribute({"ID\0\0\0", 5}), "ID");
    CLEANATTRIBUTENAME(out, "abc", -1);
    EXPECT_EQ(out.view(), "X");

    Text<300> cut;
    SS256(cut, std::string(255, 'a') + " b");
    EXPECT_EQ(cut.size(), 255U);
}

// Compares two texts with a "|" between them.
std::string sameness(std::string_view both) {
    const std::size_t bar = both.find('|');
    const std::string_view a = both.substr(0, bar);
    const std::string_view b = both.substr(bar + 1);
    if (ASAME(a, b) != ASAME(b, a)) return "depends on the order";
    return ASAMECS(a, b) ? "same" : ASAME(a, b) ? "other case" : "different";
}

TEST(Strings, Comparisons) {
    checkRows(sameness,
              {"\"TRUE\"|true -> other case", "a b|ab -> different", " \" \t'a|a   -> same",
               "'abc '|abc -> same", "|\"\" -> same", "a| -> different", "abc|abcd -> different",
               "\ta\tb|ab -> same", "a\"b|A'B -> other case"});
    const std::string thousand(1000, 'x');
    EXPECT_TRUE(ASAMECS(thousand, thousand + "y"));
}

// What stands behind a flag that follows the line and a "|".
std::string behindFlag(std::string_view both) {
    const std::size_t bar = both.find('|');
    const std::string_view line = both.substr(0, bar);
    const std::string_view flag = both.substr(bar + 1);
    Text<40> rest("old");
    const bool found = FLAGEXISTSRET(line, flag, rest);
    if (FLAGEXISTS(line, flag) != found) return "differs from FLAGEXISTS";
    return found ? '[' + std::string(rest.view()) + ']' : rest.blank() ? "none" : "rest not blank";
}

TEST(Strings, Flags) {
    checkRows(behindFlag,
              {"String 2D {|2d -> [ {]", "String 2D {|2d   -> [ {]",
               "abAbaBc Rest|ABABC -> [ Rest]", "aab|AB -> []", "aab|b c -> none", "ab|abc -> none",
               "line| -> [line]", "line|    -> [line]", "| -> []", "|a -> none",
               // 32 apart, yet no letters
               "x@y|X`Y -> none", "a[b|A{B -> none"});
    const std::string capacity(kLineCapacity - 4, '.');
    EXPECT_TRUE(FLAGEXISTS(capacity + "FLAG", "flag"));
    EXPECT_FALSE(FLAGEXISTS(capacity + ".FLAG", "flag"));

    Text<10> tabs("\t \t");
    EXPECT_TRUE(BLANK(tabs));
    EXPECT_TRUE(tabs.blank());
    Text<10> word("\ta");
    EXPECT_FALSE(BLANK(word));
}

// Text, what to find and its replacement, with a "|" between them; the text's capacity is 20.
template <void (*kRoutine)(TextRef, std::string_view, std::string_view, std::string_view)>
std::string replaced(std::string_view row) {
    const std::size_t first = row.find('|');
    const std::size_t second = row.find('|', first + 1);
    Text<20> text(row.substr(0, first));
    kRoutine(text, text, row.substr(first + 1, second - first - 1), row.substr(second + 1));
    return std::string(text.view());
}

TEST(Strings, Replacements) {
    checkRows(replaced<REPLACE>, {"a null b NULL|null|-9 -> a -9 b NULL", "abc|x|y -> abc",
                                  "abc|  |y -> abc", "abc|B  |12   -> a12c", "a null|null| -> a"});
    checkRows(replaced<REPLACEALL>,
              {"a null b NULL|null|-99999 -> a -99999 b -99999", "aaa|a|bc -> bcbcbc",
               "nnullull null x|NULL| ->   x", "a.b.c|.|.. -> a..b..c", "xAx|a|a -> xax",
               "1234567890123456789a|a|bcd -> 1234567890123456789b", "abc||x -> abc"});
    // The capacity of the result cuts what is left, not what goes in.
    Text<4> narrow;
    REPLACEALL(narrow, "aaaaaa1234", "a", "");
    EXPECT_EQ(narrow.view(), "1234");
    // Each step brings about the next; it must come to an end.
    Text<4> growing;
    REPLACEALL(growing, "aab", "ab", "bbaa");
}

}  // namespace
}  // namespace vantelgis
