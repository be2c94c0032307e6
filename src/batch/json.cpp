#include "batch/json.h"

#include <charconv>
#include <cmath>

#include "batch/utf8.h"

namespace vantelgis::batch {

namespace {

constexpr int kDeepest = 64;  // of arrays and objects inside one another
constexpr unsigned kFirstOddByte = 0xDC00;
constexpr std::string_view kHexDigits = "0123456789abcdef";

void appendEscape(std::string& out, unsigned unit) {
    out += "\\u";
    for (int shift = 12; shift >= 0; shift -= 4) out += kHexDigits[unit >> shift & 0xF];
}

void appendCharacter(std::string& out, std::string_view character) {
    const auto byte = static_cast<unsigned char>(character.front());
    if (character == "\"" || character == "\\") {
        (out += '\\') += character;
    } else if (byte < 0x20 || byte == 0x7F) {
        appendEscape(out, byte);
    } else if (byte >= 0x80 && character.size() == 1) {
        appendEscape(out, kFirstOddByte + byte);
    } else {
        out += character;
    }
}

}  // namespace

void JsonWriter::separate() {
    const char last = out_.empty() ? '{' : out_.back();
    if (last != '{' && last != '[' && last != ':' && last != '\n') out_ += ',';
}

JsonWriter& JsonWriter::key(std::string_view name) {
    text(name);
    out_ += ':';
    return *this;
}

void JsonWriter::text(std::string_view value) {
    separate();
    out_ += '"';
    while (!value.empty()) {
        const std::size_t length = utf8Length(value);
        appendCharacter(out_, value.substr(0, length));
        value.remove_prefix(length);
    }
    out_ += '"';
}

void JsonWriter::integer(std::int64_t value) {
    separate();
    out_ += std::to_string(value);
}

void JsonWriter::real(double value) {
    separate();
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    out_ += std::isfinite(value) ? std::string_view(digits, end) : std::string_view("null");
}

void JsonWriter::boolean(bool value) {
    separate();
    out_ += value ? "true" : "false";
}

void JsonWriter::begin(char bracket) {
    separate();
    out_ += bracket;
}

void JsonWriter::end(char bracket) {
    out_ += bracket;
}

void JsonReader::fail() {
    failed_ = true;
    rest_ = {};
}

void JsonReader::passBlanks() {
    while (!rest_.empty() &&
           std::string_view(" \t\r\n").find(rest_.front()) != std::string_view::npos)
        rest_.remove_prefix(1);
}

bool JsonReader::take(char expected) {
    passBlanks();
    if (rest_.empty() || rest_.front() != expected) return false;
    rest_.remove_prefix(1);
    return true;
}

bool JsonReader::nextOf(bool& open, char opening, char closing) {
    if (failed_) return false;
    if (!open) {
        if (!take(opening) || ++depth_ > kDeepest) {
            fail();
            return false;
        }
        open = true;
        if (!take(closing)) return true;
    } else {
        if (take(',')) return true;
        if (!take(closing)) fail();
    }
    --depth_;
    return false;
}

bool JsonReader::nextMember(bool& open, std::string& name) {
    if (!nextOf(open, '{', '}')) return false;
    name = text();
    if (!take(':')) fail();
    return !failed_;
}

bool JsonReader::nextItem(bool& open) {
    return nextOf(open, '[', ']');
}

unsigned JsonReader::hexDigits() {
    unsigned unit = 0;
    if (rest_.size() < 4) {
        fail();
        return 0;
    }
    const auto result = std::from_chars(rest_.data(), rest_.data() + 4, unit, 16);
    if (result.ptr != rest_.data() + 4) fail();
    rest_.remove_prefix(std::min<std::size_t>(4, rest_.size()));
    return unit;
}

void JsonReader::takeEscape(std::string& out) {
    if (rest_.empty()) return fail();
    const char kind = rest_.front();
    rest_.remove_prefix(1);
    constexpr std::string_view kNames = "bfnrt\"\\/";
    constexpr std::string_view kMeant = "\b\f\n\r\t\"\\/";
    if (const std::size_t at = kNames.find(kind); at != std::string_view::npos) {
        out += kMeant[at];
        return;
    }
    if (kind != 'u') return fail();
    unsigned unit = hexDigits();
    if (unit >= 0xDC80 && unit <= 0xDCFF) {
        out += static_cast<char>(unit - kFirstOddByte);
        return;
    }
    if (unit >= 0xD800 && unit < 0xDC00) {
        if (!rest_.starts_with("\\u")) return fail();
        rest_.remove_prefix(2);
        unit = 0x10000 + ((unit - 0xD800) << 10) + (hexDigits() - 0xDC00);
    }
    appendUtf8(out, unit);
}

std::string JsonReader::text() {
    std::string result;
    if (!take('"')) fail();
    while (!failed_) {
        const std::size_t plain = rest_.find_first_of("\"\\");
        if (plain == std::string_view::npos) {
            fail();
            break;
        }
        result.append(rest_.substr(0, plain));
        const bool ends = rest_[plain] == '"';
        rest_.remove_prefix(plain + 1);
        if (ends) return result;
        takeEscape(result);
    }
    return {};
}

double JsonReader::real() {
    passBlanks();
    double value = 0;
    if (rest_.starts_with("null")) {
        rest_.remove_prefix(4);
        return std::nan("");
    }
    const auto result = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value);
    if (result.ec != std::errc{}) {
        fail();
        return 0;
    }
    rest_.remove_prefix(static_cast<std::size_t>(result.ptr - rest_.data()));
    return value;
}

std::int64_t JsonReader::integer() {
    passBlanks();
    std::int64_t value = 0;
    const auto result = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value);
    if (result.ec != std::errc{}) fail();
    if (!failed_) rest_.remove_prefix(static_cast<std::size_t>(result.ptr - rest_.data()));
    return failed_ ? 0 : value;
}

bool JsonReader::boolean() {
    passBlanks();
    const bool value = rest_.starts_with("true");
    if (!value && !rest_.starts_with("false")) fail();
    if (!failed_) rest_.remove_prefix(value ? 4 : 5);
    return value;
}

void JsonReader::skip() {
    passBlanks();
    const char first = rest_.empty() ? ' ' : rest_.front();
    bool open = false;
    std::string name;
    if (first == '{') {
        while (nextMember(open, name)) skip();
    } else if (first == '[') {
        while (nextItem(open)) skip();
    } else if (first == '"') {
        text();
    } else if (first == 't' || first == 'f') {
        boolean();
    } else {
        real();
    }
}

}  // namespace vantelgis::batch
