#include "toolkit/strings.h"

#include <string>

#include "support/rows.h"
#include "text/paths.h"
#include "toolkit/lines.h"
#include "toolkit/paths.h"

namespace vantelgis {
namespace {

// What a routine makes of a text, in place or not.
template <std::size_t kCapacity, void (*kRoutine)(TextRef, std::string_view)>
std::string changed(std::string_view text) {
    Text<kCapacity> out("old");
    kRoutine(out, text);
    Text<kCapacity> inPlace(text);
    kRoutine(inPlace, inPlace);
    return std::string(out.view() == inPlace.view() ? out.view() : "another result in place");
}

TEST(Strings, Changes) {
    checkRows(changed<10, TRIMF>, "  a b   -> a b", "     -> ", "\t a -> \t a");
    checkRows(changed<10, REMOVETABS>, "\ta\t b\t -> a b", "\t \t -> ");
    checkRows(changed<10, REMOVEQUOTES>, "\"it's\" \"\" -> its");
    checkRows(changed<10, REMOVESPACES>, " a b\tc  -> ab\tc");
    checkRows(changed<10, DOUBLEQUOTE>, "\"a\" 'b' -> \"\"a\"\" 'b'",
              "\"\"\"abcdef -> \"\"\"\"\"\"abcd", "12345678 \" -> 12345678 \"");
    checkRows(changed<10, UPPERCASE>, "aZ[\xE4{z -> AZ[\xE4{Z");
    checkRows(changed<10, LOWERCASE>, "az[\xC4@A -> az[\xC4@a");
    Text<300> cut;
    SS256(cut, std::string(255, 'a') + " b");
    EXPECT_EQ(cut.size(), 255U);
    Text<10> tabs("\t \t"), word("\ta");
    EXPECT_TRUE(BLANK(tabs) && tabs.blank() && !BLANK(word));
}

TEST(Strings, CleanNames) {
    // The fill stands in front of the name; "0" there is the zero byte, "-" stands for none.
    const auto only = [](std::string_view row) {
        Text<12> out(row.substr(1));
        const char fill = row.front() == '0' ? '\0' : row.front();
        ALPHANUMERICONLY(out, out, {&fill, fill == '-' ? 0U : 1U});
        return std::string(out.view());
    };
    checkRows(only, "_a-b -> a_b", "0--- -> X", "0a-b c1 -> abc1", " -.- -> X", "_ -> X",
              " C:\\flood\\l   -> C  flood l", "-a-b -> a b");
    const auto attribute = [](std::string_view s) {
        Text<20> name;
        CLEANATTRIBUTENAME(name, s, s == "abc" ? -1 : 10);
        return std::string(name.view());
    };
    checkRows(attribute, "Max_h (m) -> Max_hm", "ABCDEFGHIJKL -> ABCDEFGHIJ", "() -> X",
              "abc -> X");
    EXPECT_EQ(attribute({"ID\0\0\0", 5}), "ID");
}

// Compares two texts with a "|" between them.
std::string sameness(std::string_view both) {
    const auto [a, b, rest] = partsOf(both);
    if (ASAME(a, b) != ASAME(b, a)) return "depends on the order";
    return ASAMECS(a, b) ? "same" : ASAME(a, b) ? "other case" : "different";
}

// What stands behind a flag that follows the line and a "|".
std::string behindFlag(std::string_view both) {
    const auto [line, flag, none] = partsOf(both);
    Text<40> rest("old");
    const bool found = FLAGEXISTSRET(line, flag, rest);
    if (FLAGEXISTS(line, flag) != found) return "differs from FLAGEXISTS";
    return found ? '[' + std::string(rest.view()) + ']' : rest.blank() ? "none" : "rest not blank";
}

TEST(Strings, ComparisonsAndFlags) {
    checkRows(sameness, "\"TRUE\"|true -> other case", "a b|ab -> different",
              " \" \t'a|a   -> same", "'abc '|abc -> same", "|\"\" -> same", "a| -> different",
              "abc|abcd -> different", "\ta\tb|ab -> same", "a\"b|A'B -> other case");
    const std::string thousand(1000, 'x');
    EXPECT_TRUE(ASAMECS(thousand, thousand + "y"));
    EXPECT_FALSE(ASAMECS(thousand, thousand.substr(1) + "y"));
    checkRows(behindFlag, "String 2D {|2d -> [ {]", "String 2D {|2d   -> [ {]",
              "abAbaBc Rest|ABABC -> [ Rest]", "aab|AB -> []", "aab|b c -> none", "ab|abc -> none",
              "line| -> [line]", "line|    -> [line]", "| -> []", "|a -> none",
              // 32 apart, yet no letters
              "x@y|X`Y -> none", "a[b|A{B -> none");
    const std::string capacity(kLineCapacity - 4, '.');
    EXPECT_TRUE(FLAGEXISTS(capacity + "FLAG", "flag"));
    EXPECT_FALSE(FLAGEXISTS(capacity + ".FLAG", "flag"));
}

TEST(Paths, Pieces) {
    checkRows(changed<1000, FILEEXT>, "site.v2\\model -> ", "A.MIF -> .mif", "a.b.C   -> .c",
              "a/b. -> .", "noext -> ", "a.mif_of_last_year -> .mif_of_last_year");
    checkRows(changed<1000, FILEEXTKC>, "A.MIF -> .MIF");
    checkRows(changed<1000, FILENAME>, "C:\\a\\b.c.d -> b.c", "C:\\a\\.hidden -> .hidden",
              ".hidden -> ", "readme -> readme", "C:\\a.b\\c -> c", "a/b\\c/d.e -> d",
              "C:\\a\\ -> ", "a/b .mif -> b");
    checkRows(changed<1000, FILENAMEEXT>, "C:\\a/b.c.d -> b.c.d", "b.c -> b.c", "a\\ -> ");
    checkRows(changed<1000, FILENAMEPATH>, ".hidden -> .hidden", "C:\\a.b\\c -> C:\\a.b\\c",
              "C:\\a\\b.mif -> C:\\a\\b", "C:\\a\\.hidden -> C:\\a\\");
    checkRows(changed<1000, FILEFOLDERPATH>, "a.txt -> ", "C:\\a/b.txt -> C:\\a/");
    checkRows(changed<1000, FILE___EXT>, "C:\\x_y\\site_QMED_Max.shp -> _max", "x_y\\site.shp -> ",
              "site_.shp -> _");
    checkRows(changed<1000, FILENAMENO_>, "C:\\x\\site_a_b.shp -> site_a", "x_y\\site.shp -> site",
              "x\\_site.shp -> ");
    checkRows(changed<1000, FILENAMEPATHNO_>, "C:\\x\\site_a_b.shp -> C:\\x\\site_a",
              "x_y\\site.shp -> x_y\\site", "_site.shp -> _site", "x\\_site.shp -> x\\");
    EXPECT_TRUE(hasExtension("a.b/C.MiF  ", ".mif") && !hasExtension("a.mif0", ".mif"));
}

// Folder and name with a "|" between them.
std::string joined(std::string_view both) {
    const auto [folder, nameText, none] = partsOf(both);
    Path name(nameText);
    ADDFOLDER(name, folder, name);
    return std::string(name.view());
}

std::string cleaned(std::string_view text) {
    Path path(text), out;
    CLEANPATH(out, path);
    return std::string(out.view() == path.view() ? out.view() : "another result in place");
}

TEST(Paths, JoinedResolvedAndCleaned) {
    checkRows(changed<1000, REMOVEDOTDOT>, "a\\..\\b -> b", "..\\..\\b -> ..\\..\\b",
              "..\\a\\..\\b -> ..\\b", "..\\..\\a\\..\\..\\b -> ..\\..\\..\\b",
              "\\..\\b\\..\\c -> \\..\\b\\..\\c", "  C:\\a\\b\\..\\..\\c -> C:\\c",
              "C:\\a\\\\\\b -> C:\\a\\b", "\\\\srv\\a\\\\b -> \\\\srv\\a\\\\b",
              "\\\\srv\\a\\..\\b -> \\\\srv\\b", "C:\\a\\.\\.\\b -> C:\\a\\b",
              "C:/a/../b -> C:/a/../b", "a\\.. -> a\\..");
    checkRows(joined, "C:\\a\\|..\\b\\c.csv -> C:\\b\\c.csv", "C:\\a|D:\\x.csv -> D:\\x.csv",
              "C:\\a|\\\\srv\\x -> \\\\srv\\x", "C:\\a  |  x.csv   -> C:\\a\\x.csv",
              "C:\\a|\\x -> C:\\a\\x", "C:\\a|/x -> C:\\a\\/x",
              "/home/a/|../b.mif -> /home/a/../b.mif", "|x.csv -> x.csv", "C:\\a\\| -> C:\\a\\",
              "| -> .");
    const std::string folder(999, 'f');  // a path that is too long is cut, wherever that falls
    EXPECT_EQ(joined(folder + "|name"), folder + "\\");
    checkRows(cleaned, "  a\\\\\\b -> a\\b", "a//b -> a/b", "\\\\srv\\\\b -> \\\\srv\\\\b",
              "\\\\srv//b -> \\\\srv/b", "//a\\\\b//c -> //a\\b//c", "a/\\b -> a/\\b");
    checkRows([](std::string_view path) { return std::string(driveAsFolder(path)); },
              " c:\\data -> C Drive\\data", "\\\\srv\\share -> URL\\srv\\share",
              "//srv/share -> URL\\srv/share", "data\\a -> data\\a",
              "\\\\c:\\x -> URL\\C Drive\\x");
}

}  // namespace
}  // namespace vantelgis
