#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "gis/dbf/record_split.h"

namespace vantelgis {
namespace {

TEST(DbfSplit, FollowsTheRulesOfAList) {
    const struct {
        std::string_view line;
        std::string_view items;  // of three, each behind a bar; before the split they are 1, 2, 3
    } rows[] = {
        {"a,b,c", "|a|b|c"},
        {"  a  b , c ,d", "|a|b|c"},
        {R"('it''s, a / b'"x ""y""" z)", R"(|it's, a / b|x "y"|z)"},
        {R"(a "never closed, c)", "|a|never closed, c|3"},
        {R"("",'' ,b)", "|||b"},
        {"a,,c", "|a|2|c"},
        {", ,c", "|1|2|c"},
        {"a,", "|a|2|3"},
        {"", "|1|2|3"},
        {"a/b,c", "|a|2|3"},
        {" / a", "|1|2|3"},
        {"2*x,y", "|x|x|y"},
        {"2*'x y' y", "|x y|x y|y"},
        {"2*,c", "|1|2|c"},
        {"2* c", "|1|2|c"},
        {"9*a", "|a|a|a"},
        {"99999999999999999999999*a", "|a|a|a"},
        {"a*2 2**b 5", "|a*2|*b|*b"},
        {"12 3.4*5 c", "|12|3.4*5|c"},
    };
    for (const auto& row : rows) {
        std::vector<RecordItem> items{"1", "2", "3"};
        EXPECT_TRUE(dbfSplitRecord(row.line, items));
        std::string found;
        for (const RecordItem& item : items) found += "|" + std::string(item.view());
        EXPECT_EQ(found, row.items) << row.line;
    }
    std::vector<RecordItem> one(1);
    EXPECT_FALSE(dbfSplitRecord("0*a", one));
}

TEST(DbfSplit, CutsAnItemAtItsCapacity) {
    std::vector<RecordItem> items(2);
    const std::string longText(300, 'x');
    EXPECT_TRUE(dbfSplitRecord(longText + ",'" + longText + "'", items));
    EXPECT_EQ(items[0].view(), longText.substr(0, 256));
    EXPECT_EQ(items[1].view(), longText.substr(0, 256));
}

}  // namespace
}  // namespace vantelgis
