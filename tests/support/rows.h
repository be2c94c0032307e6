#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace vantelgis {

/// Each row holds an input, " -> " and what `result` is to make of it.
template <typename Result, typename... Rows>
void checkRows(Result result, Rows... rows) {
    constexpr std::string_view kArrow = " -> ";
    for (const std::string_view row : {std::string_view(rows)...}) {
        const std::size_t at = row.find(kArrow);
        EXPECT_EQ(result(row.substr(0, at)), row.substr(at + kArrow.size())) << row;
    }
}

/// The number that a text is, 0 for none.
template <typename Number>
Number numberIn(std::string_view text) {
    Number value{};
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

/// Whether `text` has `part` in it; a test that fails shows the whole of it.
inline testing::AssertionResult holds(std::string_view text, std::string_view part) {
    if (text.find(part) != std::string_view::npos) return testing::AssertionSuccess();
    return testing::AssertionFailure() << '"' << part << "\" is not in: " << text;
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
