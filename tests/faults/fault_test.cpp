#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "memory/memory_run.h"
#include "memory/sample_runs.h"

namespace vantelgis {

namespace {

using memory::Operation;
using memory::system;
using memory::Use;

constexpr std::string_view kPromptToClose = "\n\nPress Enter to Close\n";
constexpr std::string_view kBarePrompt = "\nEnter command<CR> or <CR> to continue.\n";

// What a run says, at the start of a line, when an operation on a file fails; then it stops.
struct Rule {
    std::string_view ending;   // of the file's name
    std::string_view from;     // what stands in the file where the rule begins to hold
    std::string_view message;  // its first part
};
constexpr std::string_view kDbfEndOfHeader = "\r ";
constexpr Rule kReading[] = {
    {"s.mif", "", "ERROR 0315 - Could not find start of attribute definitions in .mif file"},
    {"s.mif", "  Z ", "ERROR 0316 - Could not read attribute definitions in .mif file"},
    {"s.mif", "  Value ", "ERROR 0316 - Could not read attribute definitions in .mif file"},
    {"s.mif", "Data", "ERROR 0313 - Could not find start of \"Data\" block in .mif file."},
    {"s.mif", "\r\nP", "ERROR 0321 - Reading .mif file object type."},
    {"s.mif", "0 0\r\n10", "ERROR 0308 - Reading .mif file.  Check file format"},
    {"s.mif", "Region 1", "ERROR 0321 - Reading .mif file object type."},
    {"s.mif", " 2\r\n3 3", "ERROR 0308 - Reading .mif file.  Check file format"},
    {"s.mif", "Point 0", "ERROR 0321 - Reading .mif file object type."},
    {"s.mif", "3 4\r\n", "ERROR 0308 - Reading .mif file.  Check file format"},
    {"s.mif", "Point 5", "ERROR 0321 - Reading .mif file object type."},
    {".mid", "", "ERROR 0254 - Failed to read object attribute data record for a "},
    {".shp", "", "ERROR 0427 - Reading .shp file header."},
    {".dbf", "", "ERROR 0403 - Reading .dbf file header."},
    {".dbf", kDbfEndOfHeader, "ERROR 0407 - Reading .dbf record."},
    {".12da", "", "WARNING - Problems finding start of data in .12da file"},
    {".12da", "", "ERROR - Reading file site.12da"},  // the test for a mark at its start
    {".12da", "string 3d {", "ERROR - Reading file site.12da"},
};
// The same for everything that goes wrong with an output, by where it is written: the first bytes
// of a header, its places that only the end of a run can fill, or anywhere else.
constexpr std::int64_t kElsewhere = -1;
struct WritingRule {
    std::string_view ending;
    std::int64_t position;
    std::string_view message;
};
constexpr std::string_view kRewriting =
    "ERROR 0413 - Rewriting .dbf file header with final information.";
constexpr WritingRule kWriting[] = {
    {".12da", kElsewhere, "ERROR - Writing file "},
    {".csv", kElsewhere, "ERROR - Writing file "},
    {".mif", kElsewhere, "ERROR 0439 - Writing .mif file object coordinates."},
    {".mid", kElsewhere, "ERROR 0254 - Failed to write attribute data record for a "},
    {".prj", kElsewhere, "ERROR 0437 - Writing .shp file header."},
    {".shp", 0, "ERROR 0437 - Writing .shp file header."},
    {".shp", 24, kRewriting},
    {".shp", 36, kRewriting},
    {".shp", kElsewhere, "ERROR 0439 - Writing .shp file object coordinates."},
    {".dbf", 0, "ERROR 0413 - Writing .dbf file header."},
    {".dbf", 4, kRewriting},
    {".dbf", kElsewhere, "ERROR 0417 - Writing .dbf record."},
    {".dbf", kElsewhere, kRewriting},  // the mark behind the last record
};

bool stopsWith(std::string_view message, std::string_view prompt) {
    const std::string& console = system.console;
    const bool finished = console.find("\nFinished.\n") != std::string::npos;
    return console.find("\n" + std::string(message)) != std::string::npos &&
           console.ends_with(prompt) && finished == message.starts_with("WARNING");
}

bool readFaultIsTold() {
    const Use& failed = system.failed;
    const std::string& bytes = system.files[failed.name];
    const auto place = static_cast<std::size_t>(failed.position);
    if (failed.name.ends_with(".shp") && place >= 100) {
        // A record of points.shp has 28 bytes, of which the first 12 tell its type.
        const bool points = failed.name == "points.shp", inType = (place - 100) % 28 < 12;
        const std::string_view type = "ERROR 0424 - Reading .shp file object type.";
        const std::string_view coordinates = "ERROR 0429 - Reading .shp file object coordinates.";
        return (stopsWith(type, kPromptToClose) && (inType || !points)) ||
               (stopsWith(coordinates, kPromptToClose) && !(inType && points));
    }
    if (system.console.find("\nFile 1: ") == std::string::npos)
        return stopsWith("ERROR - Reading data\n", kBarePrompt);  // reading the projection
    std::string_view from;  // of the last rule that begins to hold in front of the place
    for (const Rule& rule : kReading) {
        if (failed.name.ends_with(rule.ending) && bytes.find(rule.from) <= place) from = rule.from;
    }
    return std::ranges::any_of(kReading, [&](const Rule& rule) {
        return failed.name.ends_with(rule.ending) && rule.from == from &&
               stopsWith(rule.message, kPromptToClose);
    });
}

// A write is told in the words of its place, all else in any of its file's.
bool writeFaultIsTold() {
    const Use& failed = system.failed;
    std::string name = failed.name;
    if (name.ends_with(".shx")) name.back() = 'p';
    const auto ofFile = [&](const WritingRule& rule) { return name.ends_with(rule.ending); };
    const bool ownPlace = std::ranges::any_of(kWriting, [&](const WritingRule& rule) {
        return ofFile(rule) && rule.position == failed.position;
    });
    const std::int64_t place = ownPlace ? failed.position : kElsewhere;
    return std::ranges::any_of(kWriting, [&](const WritingRule& rule) {
        return ofFile(rule) && stopsWith(rule.message, kPromptToClose) &&
               (failed.operation != Operation::write || rule.position == place);
    });
}

bool openFaultIsTold() {
    const std::string name = system.failed.name;
    if (!system.failed.forOutput)
        return stopsWith("ERROR - Can't open file: " + name + "\n", kPromptToClose);
    return stopsWith("\n Can't open: " + name + "\n\n", kPromptToClose) &&
           stopsWith("ERROR - End of File encountered\n", kPromptToClose);
}

bool otherFaultIsTold() {
    const Use& failed = system.failed;
    if (failed.operation == Operation::open) return openFaultIsTold();
    return failed.forOutput ? writeFaultIsTold()
                            : std::ranges::any_of(kReading, [&](const Rule& rule) {
                                  return failed.name.ends_with(rule.ending) &&
                                         stopsWith(rule.message, kPromptToClose);
                              });
}

// How the run ended, for the report of a failed test.
std::string endOfRun(const SampleRun& run) {
    const std::size_t shown = std::min<std::size_t>(system.console.size(), 300);
    return std::string(run.name) + ": byte " + std::to_string(system.failed.position) + " of " +
           system.failed.name + "\n..." + system.console.substr(system.console.size() - shown);
}

// Lets each use of an operation fail in turn, in a system like `start`. `told` has the use that
// failed and whether the files are those of a run without a fault, and says whether all is well.
template <typename Told>
void failEachUse(const SampleRun& run, const memory::System& start, Told told) {
    memory::Files expected;
    for (std::int64_t n = -1; n <= 0 || system.faultMet; ++n) {
        system = n < 0 ? memory::System{} : start;
        system.files = run.files;
        system.faultAt = n;
        memory::runProgramInMemory(run.arguments);
        if (n < 0) {
            expected = system.files;
            EXPECT_NE(system.console.find("\nFinished.\n"), std::string::npos) << run.name;
        } else if (system.faultMet) {
            const bool nothingLost = system.files == expected;
            EXPECT_TRUE(told(system.failed, nothingLost)) << endOfRun(run);
        }
    }
}

TEST(AFaultOnDisk, AtAnyReadIsToldInTheWordsOfItsPlace) {
    memory::System start;
    start.mostPerRead = 7;
    start.faultStays = true;
    for (const SampleRun& run : sampleRuns()) {
        if (run.name == "3d from one mif") continue;  // reads the same lines in two ways
        failEachUse(run, start, [](const Use& failed, bool nothingLost) {
            return failed.operation != Operation::read || nothingLost || readFaultIsTold();
        });
    }
}

TEST(AFaultOfTheSystem, IsToldInTheWordsOfItsFile) {
    const auto told = [](const Use& failed, bool nothingLost) {
        return failed.operation == Operation::read || nothingLost || otherFaultIsTold();
    };
    memory::System start;
    for (const SampleRun& run : largeRuns()) failEachUse(run, start, told);
    for (const SampleRun& run : sampleRuns()) failEachUse(run, start, told);
    start.faultStays = true;
    for (const SampleRun& run : sampleRuns()) failEachUse(run, start, told);
}

TEST(AnOutputThatCannotBeOpened, IsWaitedFor) {
    memory::System start;
    start.typed = "\n";
    for (const SampleRun& run : sampleRuns()) {
        failEachUse(run, start, [](const Use& failed, bool nothingLost) {
            return failed.operation != Operation::open || !failed.forOutput || nothingLost;
        });
    }
}

}  // namespace

}  // namespace vantelgis
