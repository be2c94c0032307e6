#include "text/paths.h"

#include <string>

#include "text/rows.h"

namespace vantelgis {
namespace {

// What a routine makes of a path in its own string.
template <void (*kRoutine)(TextRef, std::string_view)>
std::string piece(std::string_view text) {
    Path out("old");
    kRoutine(out, text);
    Path inPlace(text);
    kRoutine(inPlace, inPlace);
    return std::string(out.view() == inPlace.view() ? out.view() : "another result in place");
}

TEST(Paths, Pieces) {
    checkRows(piece<FILEEXT>,
              {"site.v2\\model -> ", "A.MIF -> .mif", "a.b.C   -> .c", "a/b. -> .", "noext -> "});
    checkRows(piece<FILEEXTKC>, {"A.MIF -> .MIF"});
    checkRows(piece<FILENAME>,
              {"C:\\a\\b.c.d -> b.c", "C:\\a\\.hidden -> .hidden", ".hidden -> ",
               "readme -> readme", "C:\\a.b\\c -> c", "a/b\\c/d.e -> d", "C:\\a\\ -> "});
    checkRows(piece<FILENAMEEXT>, {"C:\\a/b.c.d -> b.c.d", "b.c -> b.c", "a\\ -> "});
    checkRows(piece<FILENAMEPATH>, {".hidden -> .hidden", "C:\\a.b\\c -> C:\\a.b\\c",
                                    "C:\\a\\b.mif -> C:\\a\\b", "C:\\a\\.hidden -> C:\\a\\"});
    checkRows(piece<FILEFOLDERPATH>, {"a.txt -> ", "C:\\a/b.txt -> C:\\a/"});
    checkRows(piece<FILE___EXT>,
              {"C:\\x_y\\site_QMED_Max.shp -> _max", "x_y\\site.shp -> ", "site_.shp -> _"});
    checkRows(piece<FILENAMENO_>,
              {"C:\\x\\site_a_b.shp -> site_a", "x_y\\site.shp -> site", "x\\_site.shp -> "});
    checkRows(piece<FILENAMEPATHNO_>,
              {"C:\\x\\site_a_b.shp -> C:\\x\\site_a", "x_y\\site.shp -> x_y\\site",
               "_site.shp -> _site", "x\\_site.shp -> x\\"});
}

TEST(Paths, DotDot) {
    checkRows(piece<REMOVEDOTDOT>,
              {"a\\..\\b -> b", "..\\..\\b -> ..\\..\\b", "..\\a\\..\\b -> ..\\b",
               "..\\..\\a\\..\\..\\b -> ..\\..\\..\\b", "\\..\\b\\..\\c -> \\..\\b\\..\\c",
               "  C:\\a\\b\\..\\..\\c -> C:\\c", "C:\\a\\\\\\b -> C:\\a\\b",
               "\\\\srv\\a\\\\b -> \\\\srv\\a\\\\b", "\\\\srv\\a\\..\\b -> \\\\srv\\b",
               "C:\\a\\.\\.\\b -> C:\\a\\b", "C:/a/../b -> C:/a/../b", "a\\.. -> a\\.."});
}

// Folder and name with a "|" between them.
std::string joined(std::string_view both) {
    const std::size_t bar = both.find('|');
    Path name(both.substr(bar + 1));
    ADDFOLDER(name, both.substr(0, bar), name);
    return std::string(name.view());
}

TEST(Paths, FolderAndName) {
    checkRows(joined, {"C:\\a\\|..\\b\\c.csv -> C:\\b\\c.csv", "C:\\a|D:\\x.csv -> D:\\x.csv",
                       "C:\\a|\\\\srv\\x -> \\\\srv\\x", "C:\\a  |  x.csv   -> C:\\a\\x.csv",
                       "C:\\a|\\x -> C:\\a\\x", "C:\\a|/x -> C:\\a\\/x",
                       "/home/a/|../b.mif -> /home/a/../b.mif", "|x.csv -> x.csv",
                       "C:\\a\\| -> C:\\a\\", "| -> ."});
    // A path that is too long is cut, wherever that falls.
    const std::string folder(999, 'f');
    EXPECT_EQ(joined(folder + "|name"), folder + "\\");
}

std::string cleaned(std::string_view text) {
    Path path(text);
    Path out;
    CLEANPATH(out, path);
    return std::string(out.view() == path.view() ? out.view() : "another result in place");
}

std::string belowAnother(std::string_view text) {
    Path path(text);
    const bool relative = DRIVEFOLDER(path);
    return std::string(path.view()) + (relative ? " relative" : " absolute");
}

TEST(Paths, CleanAndDrive) {
    checkRows(cleaned, {"  a\\\\\\b -> a\\b", "a//b -> a/b", "\\\\srv\\\\b -> \\\\srv\\\\b",
                        "\\\\srv//b -> \\\\srv/b", "//a\\\\b//c -> //a\\b//c", "a/\\b -> a/\\b"});
    checkRows(belowAnother,
              {" c:\\data -> C Drive\\data absolute", "\\\\srv\\share -> URL\\srv\\share absolute",
               "//srv/share -> URL\\srv/share absolute", "data\\a -> data\\a relative",
               "\\\\c:\\x -> URL\\C Drive\\x absolute"});
}

}  // namespace
}  // namespace vantelgis
