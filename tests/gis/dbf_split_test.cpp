#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "gis/dbf/record_split.h"

namespace vantelgis {
namespace {

// The first `n` items, each behind a bar.
std::string joined(const RecordItems& split, std::size_t n) {
    std::string text;
    for (std::size_t i = 0; i < n; ++i) text += "|" + std::string(split.items[i].view());
    return text;
}

TEST(DbfSplit, FollowsTheRulesOfAList) {
    const struct {
        std::string_view line;
        std::string_view items;  // before the split they are 1, 2, 3
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
        RecordItems split;
        EXPECT_TRUE(dbfSplitRecord("1,2,3", 3, split));
        EXPECT_TRUE(dbfSplitRecord(row.line, 3, split));
        EXPECT_EQ(joined(split, 3), row.items) << row.line;
    }
    RecordItems split;
    EXPECT_FALSE(dbfSplitRecord("0*a", 1, split));
    EXPECT_TRUE(
        dbfSplitRecord("'" + std::string(300, 'x') + "'" + std::string(300, 'y'), 2, split));
    EXPECT_EQ(joined(split, 2), "|" + std::string(256, 'x') + "|" + std::string(256, 'y'));
}

TEST(DbfSplit, KeepsWhatStandsBehindAnEqualRest) {
    // Lines for tables of different widths, one behind the other.
    const struct {
        std::string_view line;
        std::size_t n;
        std::string_view items;
    } rows[] = {
        {"a,b,c,d", 3, "|a|b|c"},     {"x,b,c,d", 3, "|x|b|c"}, {"y,b,c,d", 4, "|y|b|c|d"},
        {"2*z,b,c,d", 4, "|z|z|b|c"}, {"q,b,c,d", 3, "|q|b|c"}, {",b,c,d", 3, "|q|b|c"},
        {"r", 3, "|r|b|c"},           {"s,5", 3, "|s|5|c"},     {"t", 3, "|t|5|c"},
    };
    RecordItems split;
    for (const auto& row : rows) {
        EXPECT_TRUE(dbfSplitRecord(row.line, row.n, split));
        EXPECT_EQ(joined(split, row.n), row.items) << row.line;
    }
}

}  // namespace
}  // namespace vantelgis
