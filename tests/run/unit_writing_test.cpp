#include "run/unit_writing.h"

#include <gtest/gtest.h>

#include <limits>

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

}  // namespace
}  // namespace vantelgis
