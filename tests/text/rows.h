#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <string_view>

namespace vantelgis {

/// Each row holds an input, " -> " and what `result` is to make of it.
template <typename Result>
void checkRows(Result result, std::initializer_list<std::string_view> rows) {
    constexpr std::string_view kArrow = " -> ";
    for (const std::string_view row : rows) {
        const std::size_t at = row.find(kArrow);
        EXPECT_EQ(result(row.substr(0, at)), row.substr(at + kArrow.size())) << row;
    }
}

/// The first three texts of a row between "|".
inline std::array<std::string_view, 3> partsOf(std::string_view row) {
    std::array<std::string_view, 3> parts;
    for (std::string_view& part : parts) {
        part = row.substr(0, row.find('|'));
        row.remove_prefix(std::min(part.size() + 1, row.size()));
    }
    return parts;
}

}  // namespace vantelgis
