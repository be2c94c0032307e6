#include <gtest/gtest.h>

#include <string>

#include "driver/program.h"
#include "support/layer_text.h"
#include "support/shape_bytes.h"

namespace vantelgis {

namespace {

// One object of each kind and one block of each kind. Coordinates of the shapefile are made of `@`,
// which no count holds: to change them changes nothing else.
const std::string kBox(32, '@');
std::string points(std::size_t n) {
    return std::string(16 * n, '@');
}
const memory::Files kGood{
    {"a.mif",
     "Columns 1\nA Float\nData\nRegion 2\n3\n0 0\n1 0\n1 1\n1\n5 5\nBrush(1)\nMultipoint 1\n1 "
     "2\nNone\n"
     "Rect 1 2 3 4\nPline Multiple 1\n1\n1 1\nText\n\"x\"\nArc 1 2 3 4\nPoint\n1 2\nLine 1 2 3 4"},
    {"a.mid", "1\n2\n3\n4\n5\n6\n7\n8\n9\n"},
    {"a.shp", shpHeader(240, 3, {}) + kBox +
                  shpRecord(1, integers({3}) + kBox + integers({2, 10, 0, 4}) + points(10)) +
                  shpRecord(2, integers({5}) + kBox + integers({2, 10, 0, 5}) + points(10)) +
                  shpRecord(3, integers({8}) + kBox + integers({2}) + points(2)) +
                  shpRecord(4, integers({0})) +
                  shpRecord(5, integers({3}) + kBox + integers({1, 2, 0}) + points(2)) +
                  shpRecord(6, integers({1}) + points(1))},
    {"a.dbf", dbfHeader(6, {{"NAME", 'C', 4}, {"Z", 'N', 3}}) +
                  " weir1.5*gone  1 a   ***     2.5 b   7.5 c   8.5 d   9.5\x1a"},
    {"a.12da",
     "\xEF\xBB\xBF// archive_version \"14.0\"\r\n// null_keyword true\n// output_hex_floats true\n"
     "null null\nmodel \"m\"\nstring 2d {\n  name \"A // B\"\n  z 0x1.9p+3\n  data {\n 1 2\n 3 4\n "
     "}\n}\nstring super 3d polyline {\n closed 1\n data_2d {\n 1,2,3\n4.5e1 /\n}\n text { x\n}\n"
     "data_3d {\n1 2 null // c\nnull 4 5\n}\nuv_data {\n1\n}\nhipdata {\n1 2 3\n}\n}\n"
     "string text {\ndata { }\n}\nstring pipe {\ndata {\n1 2 3\n}\n}\n"},
};

void expectOrderlyEnd(const std::string& name, const std::string& bytes, const char* option) {
    memory::Files files = kGood;
    files[name] = bytes;
    const bool isArchive = name == "a.12da";
    const std::string_view arguments[] = {"vantelgis", option, "-hip", "-out", "b.mif", name};
    if (isArchive) {
        consoleOf(std::move(files), [&] { runProgram(arguments); });
    } else {
        layerText(std::move(files), name.starts_with("a.m") ? "a.mif" : "a.shp",
                  option == std::string_view("-b") ? 0 : 99);
    }
    const std::string& console = memory::system.console;
    const bool closed =
        console.find(isArchive ? "\nFinished.\n" : " Closing GIS Layer 1 [") != std::string::npos;
    ASSERT_NE(closed, console.find("\nERROR ") != std::string::npos)
        << name << bytes.size() << console;
}

// Every prefix of a file, and a binary file with any of its bytes at the border of a number.
TEST(AnInputThatIsCutOrChanged, EndsInOrder) {
    for (const auto& [name, bytes] : kGood) {
        const bool binary = name == "a.shp" || name == "a.dbf";
        for (const char* option : {"-xs", "-b"}) {
            for (std::size_t at = 0; at <= bytes.size(); ++at) {
                expectOrderlyEnd(name, bytes.substr(0, at), option);
                for (const char value : {'\0', '\x7f', '\x80', '\xff'}) {
                    std::string changed = bytes;
                    if (binary && bytes[at] != '@')
                        expectOrderlyEnd(name, changed.replace(at, 1, 1, value), option);
                }
            }
        }
    }
}

}  // namespace

}  // namespace vantelgis
