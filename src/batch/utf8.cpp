#include "batch/utf8.h"

#include <algorithm>

namespace vantelgis::batch {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
constexpr std::string_view kEllipsis = "\xE2\x80\xA6";

unsigned byteAt(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

bool continues(std::string_view text, std::size_t from, std::size_t count) {
    if (text.size() < from + count) return false;
    return std::all_of(text.begin() + static_cast<std::ptrdiff_t>(from),
                       text.begin() + static_cast<std::ptrdiff_t>(from + count),
                       [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; });
}

// The start of the character that the first `columns` characters are followed by.
std::size_t afterColumns(std::string_view text, std::size_t columns) {
    std::size_t at = 0;
    for (; columns > 0 && at < text.size(); --columns) at += utf8Length(text.substr(at));
    return at;
}

}  // namespace

std::size_t utf8Length(std::string_view text) {
    const unsigned first = byteAt(text, 0);
    if (first < 0xC2 || first > 0xF4) return 1;
    const std::size_t length = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (!continues(text, 1, length - 1)) return 1;
    const unsigned second = byteAt(text, 1);
    const bool overlong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
    const bool outside = (first == 0xED && second > 0x9F) || (first == 0xF4 && second > 0x8F);
    return overlong || outside ? 1 : length;
}

void appendUtf8(std::string& out, unsigned codePoint) {
    const auto add = [&out](unsigned byte) { out += static_cast<char>(byte); };
    if (codePoint < 0x80) return add(codePoint);
    if (codePoint < 0x800) {
        add(0xC0 | codePoint >> 6);
    } else {
        if (codePoint < 0x10000) {
            add(0xE0 | codePoint >> 12);
        } else {
            add(0xF0 | (codePoint >> 18 & 0x7));
            add(0x80 | (codePoint >> 12 & 0x3F));
        }
        add(0x80 | (codePoint >> 6 & 0x3F));
    }
    add(0x80 | (codePoint & 0x3F));
}

std::string readable(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::size_t length = utf8Length(text);
        const unsigned first = byteAt(text, 0);
        const bool odd = first < 0x20 || first == 0x7F || (length == 1 && first >= 0x80);
        result += odd ? kReplacement : text.substr(0, length);
        text.remove_prefix(length);
    }
    return result;
}

std::size_t columnsOf(std::string_view text) {
    std::size_t columns = 0;
    for (; !text.empty(); ++columns) text.remove_prefix(utf8Length(text));
    return columns;
}

std::string shortened(std::string_view text, std::size_t columns) {
    const std::size_t have = columnsOf(text);
    if (have <= columns) return std::string(text);
    if (columns == 0) return {};
    const std::size_t tail = (columns - 1) / 2;
    std::string result(text.substr(0, afterColumns(text, columns - 1 - tail)));
    result += kEllipsis;
    return result.append(text.substr(afterColumns(text, have - tail)));
}

}  // namespace vantelgis::batch
