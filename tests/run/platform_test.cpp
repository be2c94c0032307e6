#include "run/platform.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "support/in_process_run.h"

namespace vantelgis {
namespace {

using enum platform::Access;

platform::FileHandle opened(std::string_view name, platform::Access access) {
    return platform::openFile(name, access, platform::Sharing::full);
}

bool putInto(std::string_view name, platform::Access access, std::string_view text) {
    const platform::FileHandle file = opened(name, access);
    if (file == platform::kNoFile) return false;
    const bool written =
        platform::seekFile(file, 0) && platform::writeFile(file, text.data(), text.size());
    return platform::closeFile(file) && written;
}

class PlatformTest : public testing::Test {
  protected:
    WorkFolder folder_;
};

TEST_F(PlatformTest, TreatsAnOlderFileAsTheAccessSays) {
    const std::pair<platform::Access, const char*> rows[] = {
        {replace, "new"}, {keep, "newer"}, {append, "oldernew"}, {readWrite, "newer"}};
    for (const auto& [access, result] : rows) {
        writeFile("a", "older");
        EXPECT_TRUE(putInto("a", access, "new"));
        EXPECT_EQ(readFile("a"), result);
    }
    EXPECT_FALSE(putInto("a", read, "x"));
    EXPECT_EQ(opened("missing", read), platform::kNoFile);
}

TEST_F(PlatformTest, KnowsAFileUnderAnySpelling) {
    ASSERT_EQ(platform::makeFolder("sub"), 0);
    ASSERT_TRUE(putInto("a", keep, "") && putInto("b", keep, ""));
    platform::FileIdentity a, other;
    ASSERT_TRUE(platform::identify("a", a) && platform::identify("sub\\..\\./a", other));
    EXPECT_EQ(a, other);
    ASSERT_TRUE(platform::identify("b", other));
    EXPECT_NE(a, other);
    EXPECT_FALSE(platform::identify("missing", other));
    EXPECT_TRUE(platform::fileExists("sub/../a") && !platform::fileExists("sub"));
}

// Windows takes names of more than 260 characters only in a form of their own.
TEST_F(PlatformTest, TakesLongNames) {
    const std::string folder(120, 'f');
    const std::string name = folder + '\\' + std::string(200, 'a');
    ASSERT_EQ(platform::makeFolder(folder), 0);
    EXPECT_TRUE(putInto(name, replace, "x"));
    EXPECT_TRUE(platform::fileExists(name));
}

}  // namespace
}  // namespace vantelgis
