#include <string>
#include <vector>

#include "driver/program.h"
#include "support/in_process_run.h"
#include "support/rows.h"

namespace vantelgis {
namespace {

constexpr std::string_view kArchive =
    "\xEF\xBB\xBF// archive_version \"14.0\"\r\n// null_keyword true\n// output_hex_floats true\n"
    "null null\nmodel \"m\"\nstring 2d {\n  name \"A // B\"\n  z 0x1.9p+3\n  data {\n 1 2\n 3 4\n "
    "}\n"
    "}\nstring super 3d polyline {\n closed 1\n data_2d {\n 1,2,3\n4.5e1 /\n}\n text { x\n}\n"
    "data_3d {\n1 2 null // c\nnull 4 5\n}\nuv_data {\n1\n}\nhipdata {\n1 2 3\n}\n}\n"
    "string text {\ndata { }\n}\nstring pipe {\ndata {\n1 2 3\n}\n}\n";

RunResult convert(std::vector<std::string_view> arguments) {
    arguments.insert(arguments.begin(), "vantelgis");
    arguments.insert(arguments.end(), {"-b", "-out", "a.mif", "a.12da"});
    return runInProcess([&] { runProgram(arguments); }, "\n\n\n");
}

std::string lastLine(const std::string& console) {
    const std::size_t end = console.size() - 1;
    const std::size_t start = console.rfind('\n', end - 1) + 1;
    return console.substr(start, end - start);
}

TEST(ArchiveConversion, EndsInOrderForEveryPrefix) {
    const WorkFolder folder;
    for (std::size_t length = 0; length <= kArchive.size(); ++length) {
        writeFile("a.12da", kArchive.substr(0, length));
        for (const char* option : {"-mif", "-xs"}) {
            const RunResult run = convert({"-hip", option});
            EXPECT_TRUE(run.ended);
            const std::string line = lastLine(run.console);
            ASSERT_TRUE(line == "Finished." || line == "Press Enter to Close")
                << length << option << run.console;
        }
    }
    EXPECT_NE(readFile("a.mif").find("Pline "), std::string::npos);
}

TEST(ArchiveConversion, TakesTheLongestStringAndItsClosingVertexAndNoMore) {
    const WorkFolder folder;
    std::string lines;
    for (int i = 0; i < 1'000'000; ++i) lines += "1 2 -99999\n";
    const auto convertData = [](const std::string& data) {
        writeFile("a.12da", "model\nstring polyline {\ndata {\n" + data + "}\n}\n");
        return convert({}).console;
    };
    EXPECT_EQ(lastLine(convertData(lines)), "Finished.");
    EXPECT_NE(readFile("a.mif").find("\nPline 1000001\r\n"), std::string::npos);
    EXPECT_TRUE(
        holds(convertData(lines + "1 2 3\n"),
              "\nERROR - Exceeded number of allowable nodes in a single polyline or region.\n"
              "        Requested 1000001        Limit 1000000\n"));
}

}  // namespace
}  // namespace vantelgis
