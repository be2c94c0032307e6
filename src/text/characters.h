#pragma once

#include <cstddef>
#include <string_view>

namespace vantelgis {

// Tests of characters: ASCII alone, whatever the locale.

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr bool isUpper(char c) {
    return c >= 'A' && c <= 'Z';
}
constexpr bool isLower(char c) {
    return c >= 'a' && c <= 'z';
}
constexpr bool isLetter(char c) {
    return isUpper(c) || isLower(c);
}
constexpr bool isQuote(char c) {
    return c == '"' || c == '\'';
}
constexpr bool isSeparator(char c) {
    return c == '\\' || c == '/';
}

constexpr char toLower(char c) {
    return isUpper(c) ? static_cast<char>(c + ('a' - 'A')) : c;
}
constexpr char toUpper(char c) {
    return isLower(c) ? static_cast<char>(c - ('a' - 'A')) : c;
}

/// Equal but for the case of ASCII letters.
constexpr bool sameIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (toLower(a[i]) != toLower(b[i])) return false;
    return true;
}

/// `word` stands in the first columns of `line`, in any case.
constexpr bool beginsWith(std::string_view line, std::string_view word) {
    return line.size() >= word.size() && sameIgnoringCase(line.substr(0, word.size()), word);
}

}  // namespace vantelgis
