#include <string>
#include <string_view>

#include "gis/dbf/record_split.h"
#include "support/rows.h"

namespace vantelgis {
namespace {

// The first `n` items, each behind a bar.
std::string joined(const RecordItems& split, std::size_t n) {
    std::string text;
    for (std::size_t i = 0; i < n; ++i) text += "|" + std::string(split.items[i].view());
    return text;
}

// The three items of a line; before the split they are 1, 2, 3.
std::string threeOf(std::string_view line) {
    RecordItems split;
    EXPECT_TRUE(dbfSplitRecord("1,2,3", 3, split) && dbfSplitRecord(line, 3, split));
    return joined(split, 3);
}

TEST(DbfSplit, FollowsTheRulesOfAList) {
    checkRows(threeOf, "a,b,c -> |a|b|c", "  a  b , c ,d -> |a|b|c",
              R"('it''s, a / b'"x ""y""" z -> |it's, a / b|x "y"|z)",
              R"(a "never closed, c -> |a|never closed, c|3)", R"("",'' ,b -> |||b)",
              "a,,c -> |a|2|c", ", ,c -> |1|2|c", "a, -> |a|2|3", " -> |1|2|3", "a/b,c -> |a|2|3",
              " / a -> |1|2|3", "2*x,y -> |x|x|y", "2*'x y' y -> |x y|x y|y", "2*,c -> |1|2|c",
              "2* c -> |1|2|c", "9*a -> |a|a|a", "99999999999999999999999*a -> |a|a|a",
              "a*2 2**b 5 -> |a*2|*b|*b", "12 3.4*5 c -> |12|3.4*5|c");
    RecordItems split;
    EXPECT_FALSE(dbfSplitRecord("0*a", 1, split));
    EXPECT_TRUE(dbfSplitRecord("12*a,b", 13, split));
    EXPECT_EQ(joined(split, 13), "|a|a|a|a|a|a|a|a|a|a|a|a|b");
    EXPECT_TRUE(
        dbfSplitRecord("'" + std::string(300, 'x') + "'" + std::string(300, 'y'), 2, split));
    EXPECT_EQ(joined(split, 2), "|" + std::string(256, 'x') + "|" + std::string(256, 'y'));
}

TEST(DbfSplit, KeepsWhatStandsBehindAnEqualRest) {
    // Lines for tables of different widths, one behind the other; the width stands in front.
    RecordItems split;
    const auto next = [&split](std::string_view row) {
        const auto n = static_cast<std::size_t>(row.front() - '0');
        EXPECT_TRUE(dbfSplitRecord(row.substr(1), n, split));
        return joined(split, n);
    };
    checkRows(next, "3a,b,c,d -> |a|b|c", "3x,b,c,d -> |x|b|c", "4y,b,c,d -> |y|b|c|d",
              "42*z,b,c,d -> |z|z|b|c", "3q,b,c,d -> |q|b|c", "3,b,c,d -> |q|b|c", "3r -> |r|b|c",
              "3s,5 -> |s|5|c", "3t -> |t|5|c");
}

}  // namespace
}  // namespace vantelgis
