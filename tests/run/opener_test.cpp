#include "run/opener.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "run/messages.h"
#include "support/in_process_run.h"

namespace vantelgis {
namespace {

using std::string_view_literals::operator""sv;

TEST(OpenerTest, LengthWithoutBlanksAndZeroBytes) {
    const struct {
        std::string_view text;
        int length;
        std::string_view after;
    } rows[] = {
        {"ab \0 x"sv, 6, "ab \0 x"sv}, {"ab \0  "sv, 2, "ab\0\0  "sv}, {"ab"sv, 2, "ab"sv},
        {"  "sv, 0, "\0 "sv},          {"\0\0"sv, 0, "\0\0"sv},
    };
    for (const auto& row : rows) {
        std::string text{row.text};
        EXPECT_EQ(LENSL(text.data(), static_cast<int>(text.size())), row.length);
        EXPECT_EQ(text, row.after);
    }
    EXPECT_EQ(LENSL(nullptr, 0), 0);
}

TEST(OpenerTest, ARuleGoesToTheConsoleAndToAFileOpenForBothWays) {
    const WorkFolder folder;
    const std::string rule(80, '_');
    const auto run = runInProcess([] {
        int unit = 0;
        FILEOPEN(unit, "IO", "rules");
        DLINE(unit);
        CLOSER(unit);
        DLINE(unit);
    });
    // That mode opens without a word.
    EXPECT_EQ(run.console, " Trying to open file rules..." + rule + "\n...Closed File Unit:1001\n" +
                               rule + "\n");
    EXPECT_EQ(readFile("rules"), rule + "\r\n");
}

}  // namespace
}  // namespace vantelgis
