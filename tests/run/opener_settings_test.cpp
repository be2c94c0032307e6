#include "run/opener_settings.h"

#include <filesystem>
#include <string>

#include "run/console.h"
#include "run/messages.h"
#include "run/opener.h"
#include "run/platform.h"
#include "run/unit_writing.h"
#include "support/in_process_run.h"
#include "support/rows.h"

namespace vantelgis {
namespace {

int opened(std::string_view mode, std::string_view name) {
    int unit = 0;
    openUnit(unit, mode, name);
    return unit;
}

void openAndClose(std::string_view mode, std::string_view name) {
    int unit = opened(mode, name);
    closeUnit(unit);
}

class OpenerSettingsTest : public testing::Test {
    WorkFolder folder_;
};

// Boxes are questions on the console only where the platform has none of its own.
class BoxTest : public OpenerSettingsTest {
  protected:
    void SetUp() override {
        if (platform::consoleLineEnd() != "\n") GTEST_SKIP() << "would show real message boxes";
    }
    static RunResult inBoxMode(const std::function<void()>& body, std::string_view typed) {
        const auto boxed = [&] {
            openerSettings.boxMode = true;
            openerSettings.boxTitle = "HOST";
            openerSettings.boxVersion = "7.1";
            body();
        };
        return runInProcess(boxed, typed);
    }
};

TEST_F(OpenerSettingsTest, LogsWhatOpenerAndCloserPrint) {
    writeFile("in.txt", "x");
    const auto body = [] {
        openerSettings.logUnit = opened("O ", "log.txt");
        openAndClose("I ", "missing.txt");
        consoleLine("not a line of the opener");
    };
    const RunResult run = runInProcess(body, "in.txt\n");
    std::string lines =
        " Trying to open file missing.txt... CHECK 0008 - \"missing.txt\" cannot be found\n"
        " Check file exists and press enter or enter another file name: "
        " Trying to open file in.txt...OK. Opened File Unit:1002\n"
        "...Closed File Unit:1002\n";
    EXPECT_EQ(run.console, " Trying to open file log.txt...OK.  File Unit:1001\n" + lines +
                               "not a line of the opener\n");
    runInProcess([] {});  // closes the log
    for (std::size_t at = 0; (at = lines.find('\n', at)) != std::string::npos; at += 2)
        lines.insert(at, "\r");
    EXPECT_EQ(readFile("log.txt"), lines);
}

TEST_F(OpenerSettingsTest, StartsAnewWithEachRun) {
    OpenerSettings& set = openerSettings;
    set.boxMode = set.copyMode = set.autoFolders = true;
    set.inputDrive = 'q';
    set.blockSize = 1;
    set.copyLast = "x";
    runInProcess([&] {
        EXPECT_FALSE(set.boxMode || set.copyMode || set.autoFolders);
        EXPECT_TRUE(set.inputDrive == ' ' && set.blockSize == 0 && set.copyLast.blank());
    });
}

TEST_F(BoxTest, MovesNamesWithADriveToAnother) {
    writeFile("x:in.txt", "x");
    writeFile("in.txt", "x");
    const RunResult run = runInProcess([] {
        openerSettings.inputDrive = 'x';
        openerSettings.outputDrive = 'y';
        openAndClose("I ", "c:in.txt");
        openAndClose("I ", "in.txt");
        openAndClose("O ", "c:out.txt");
    });
    EXPECT_TRUE(holds(run.console, "file x:in.txt...OK."));
    EXPECT_TRUE(holds(run.console, "file in.txt...OK."));
    EXPECT_TRUE(std::filesystem::exists("y:out.txt"));
}

TEST_F(BoxTest, AsksStopsAndPausesInBoxes) {
    const RunResult missing = inBoxMode([] { openAndClose("I ", "no.txt"); }, "r\nwhat\ncan\n");
    const std::string box =
        "\nHOST 7.1\nHOST FILE and/or path\nno.txt\ndoes not exist.\n Retry, Cancel? ";
    const std::string attempt =
        " Trying to open file no.txt... CHECK 0008 - \"no.txt\" cannot be found\n";
    EXPECT_EQ(missing.console, attempt + box + attempt + box + box);
    EXPECT_TRUE(missing.ended);

    const auto openTwice = [] {
        opened("O ", "a.txt");
        opened("BO", "./a.txt");
    };
    const std::string question =
        "\n\nHOST 7.1\nHOST file \n./a.txt\nis already open.  Close it?\n Yes, No? ";
    EXPECT_TRUE(holds(inBoxMode(openTwice, "\n").console, question + "OK.  File Unit:1002\n"));
    EXPECT_TRUE(inBoxMode(openTwice, "no\nok\n")
                    .console.ends_with(question +
                                       "\nHOST\nPremature Exit of HOST Simulation 7.1\n\nPress OK "
                                       "to Close Simulation Window\n OK? "));
    EXPECT_EQ(inBoxMode([] { opened("I ", "  "); }, {}).console,
              "\nHOST\nEmpty filename specified.  Bailing out.  Please contact "
              "support@vantelgis.example.\n OK? \n");
    const RunResult pause = inBoxMode(pauseRun, "later\nOK\n");
    const std::string paused =
        "\nHOST\nHOST Simulation 7.1 paused\n\nRefer to Simulation Window\n\nPress OK to "
        "Continue\n OK? ";
    EXPECT_EQ(pause.console, paused + paused);
    EXPECT_FALSE(pause.ended);
}

TEST_F(BoxTest, MakesAMissingFolderAndWaitsForALockedOutput) {
    const auto open = [] { openAndClose("O ", "a\\b\\out.txt"); };
    const RunResult cancelled = inBoxMode(open, "y\nn\nc\n");
    EXPECT_TRUE(cancelled.ended);
    EXPECT_TRUE(cancelled.console.ends_with(
        "Create folder below?\n\na\\b\\\n\n Yes, No? \nHOST 7.1\na\\b\\\n\nAbove folder does not "
        "exist!  Create?\n\nEither create the folder yourself and press No,\nor press Yes to have "
        "the folder created for you.\n Yes, No, Cancel? "));
    EXPECT_FALSE(std::filesystem::exists("a"));
    inBoxMode(open, "y\ny\n");
    EXPECT_TRUE(std::filesystem::exists("a/b/out.txt"));

    const RunResult made = runInProcess([] {
        openerSettings.autoFolders = true;
        openAndClose("O ", "c/d/out.txt");
        openAndClose("O ", "a/b");  // a folder of that name: no new folder helps
    });
    EXPECT_TRUE(made.console.starts_with(
        " Trying to open file c/d/out.txt...Can't Open\nOK.  File Unit:1001\n"));
    EXPECT_TRUE(holds(made.console, "file a/b...Can't Open\nCan't Open\n\n Can't open: a/b\n"));

    const std::string running = "/proc/self/exe";  // nobody may write to it
    if (!std::filesystem::exists(running)) return;
    const RunResult locked = inBoxMode([&] { opened("O ", running); }, "\nc\n");
    const std::string box =
        "Can't Open\n\nHOST 7.1\n/proc/self/exe\n\nAbove file is locked by another application.\n\n"
        "Close the file in the other application and press Retry.\n Retry, Cancel? ";
    EXPECT_EQ(locked.console, " Trying to open file /proc/self/exe..." + box + box);
}

TEST_F(OpenerSettingsTest, HandsOverInBlocks) {
    runInProcess([] {
        openerSettings.blockSize = 512;
        const int blocks = opened("F ", "blocks.txt"), whole = opened("BO", "whole.txt");
        for (int i = 0; i < 20; ++i) {
            put(blocks, std::string(100, 'b'));
            put(whole, std::string(100, 'w'));
        }
        EXPECT_EQ(std::filesystem::file_size("blocks.txt"), 1800U);
        EXPECT_EQ(std::filesystem::file_size("whole.txt"), 0U);
    });
    EXPECT_EQ(readFile("blocks.txt"), std::string(2000, 'b'));
}

TEST_F(OpenerSettingsTest, GathersTheFilesOfARun) {
    std::filesystem::create_directories("in/group");
    for (const char* name : {"in/a.mif", "in/a.mid", "in/ab.mif", "in/one.txt", "in/one.log",
                             "in/group/g.xf4", "in/group/g.dat", "in/g.dat"})
        writeFile(name, name);
    const auto copyLast = [](bool exact, std::string_view mode, std::string_view name) {
        Path last;
        runInProcess([&] {
            openerSettings.copyMode = true;
            openerSettings.copyExact = exact;
            openerSettings.copyRoot = "tree\\";
            openAndClose(mode, name);
            last = openerSettings.copyLast;
        });
        return last;
    };
    copyLast(true, "BI", "in\\one.txt");
    copyLast(false, "I ", "in\\group\\g.xf4");
    EXPECT_EQ(copyLast(false, "I ", "in\\a.mif").view(), "tree\\in\\a.mif");
    EXPECT_EQ(copyLast(false, "O ", "out\\new.csv").view(), "tree\\out\\new.csv");

    for (const char* name : {"in/a.mif", "in/a.mid", "in/one.txt", "in/group/g.xf4", "in/g.dat"})
        EXPECT_EQ(readFile("tree/" + std::string(name)), name);  // the last is the group's
    EXPECT_TRUE(std::filesystem::exists("tree/out/new.csv"));
    for (const char* name : {"tree/in/ab.mif", "tree/in/one.log", "tree/in/group/g.dat", "out"})
        EXPECT_FALSE(std::filesystem::exists(name)) << name;
}

}  // namespace
}  // namespace vantelgis
