#include "run/unit_writing.h"

#include <gtest/gtest.h>

#include <limits>

#include "run/console.h"
#include "run/opener.h"
#include "support/in_process_run.h"

namespace vantelgis {
namespace {

TEST(UnitWriting, LosesNothingThatWasWritten) {
    const WorkFolder folder;
    const auto again = runInProcess([] {
        int unit = 1001;
        for (const std::string_view name : {"first", "second"}) {
            Path path{name};
            openOnUnit(unit, path, "O ", {});
            put(unit, name);
        }
        EXPECT_EQ(readFile("first"), "first");
    });
    EXPECT_FALSE(again.ended);

    const auto putLate = [] {
        int owner = 0, taker = 0;
        openUnit(owner, "O ", "a");
        openUnit(taker, "O ", "a");
        put(owner, "too late");
    };
    const auto late = runInProcess(putLate, "y\n");
    EXPECT_TRUE(late.ended);
    EXPECT_NE(late.console.find("\n\nERROR - Writing file a\n"), std::string::npos);
}

TEST(UnitWriting, ComposesLinesOfAnyLengthInAnyRoom) {
    const WorkFolder folder;
    const std::string longText(3 * kLargestReserve, 't');
    for (const std::size_t room : {std::size_t{0}, std::size_t{1}, std::size_t{200}}) {
        runInProcess([&] {
            int unit = 0;
            openUnit(unit, "O ", "out");
            for (int i = 0; i < 2; ++i) {
                put(unit, "<");
                OutputLine line(unit, room);
                line.text("a ");
                line.fixed(-1.5, 8, 3);
                line.end();
                line.integer(-7);
                line.text(longText);
                line.text({});
                line.handOver();
                put(unit, ">");
            }
        });
        const std::string once = "<a   -1.500\r\n-7" + longText + ">";
        EXPECT_EQ(readFile("out"), once + once) << room;
    }
}

TEST(UnitWriting, KnowsNoUnitOutsideItsTable) {
    runInProcess([] {
        for (const int base : {1000, std::numeric_limits<int>::max()}) {
            initialiseUnits(base);
            EXPECT_GT(freeUnit()->number, 1000);
            for (int unit : {std::numeric_limits<int>::min(), -1, 0}) {
                const int before = unit;
                closeUnit(unit);
                EXPECT_EQ(unit, before);
            }
        }
    });
}

// What a host in one process is given of the console, and what it answers.
std::string caught;

TEST(Console, GoesToAHostAndAsksNobody) {
    const auto run = runInProcess(
        [] {
            consoleText("before ");
            setConsoleSink([](std::string_view text) { caught += text; });
            setConsoleUnattended(true);
            consoleLine("caught ", 12);
            EXPECT_FALSE(consolePause("nobody there"));
            setConsoleUnattended(false);
            EXPECT_TRUE(consolePause("behind"));
        },
        "typed\n");
    EXPECT_EQ(caught, "caught 12\nnobody there\nbehind\n");
    EXPECT_EQ(run.console, "before ");
}

}  // namespace
}  // namespace vantelgis
