#include "model/choices.h"

#include <cstdio>
#include <cstdlib>

namespace vantelgis::fuzz {

namespace {

std::string decimal(std::int64_t digits, unsigned decimals) {
    std::string text = std::to_string(std::abs(digits));
    if (decimals > 0) {
        if (text.size() <= decimals) text.insert(0, decimals + 1 - text.size(), '0');
        text.insert(text.size() - decimals, ".");
    }
    return digits < 0 ? "-" + text : text;
}

// With the exponent letter that everybody knows.
double valueOf(std::string text) {
    for (char& c : text)
        if (c == 'D' || c == 'd') c = 'E';
    return std::strtod(text.c_str(), nullptr);
}

}  // namespace

Number coordinate(Choices& choices) {
    constexpr std::int32_t kMost = 9'900'000;
    constexpr std::string_view kExponents[] = {"E3", "E+2", "D-4", "e-12", "d1"};
    std::string text;
    switch (choices.below(5)) {
        case 0: text = std::to_string(static_cast<int>(choices.below(256)) - 128); break;
        case 1: text = decimal(choices.integer() % kMost, choices.below(10)); break;
        case 2:
            text = decimal(choices.integer() % 10'000, 2);
            text += choices.oneOf(kExponents);
            break;
        case 3: text = decimal(std::int64_t{choices.integer()} * 4'000'000'007, 12); break;
        default: text = "+" + decimal(choices.below(256), 3); break;
    }
    return {text, valueOf(text)};
}

Number elevation(Choices& choices) {
    constexpr std::int32_t kMost = 1'000'000;
    const std::string text = decimal(choices.integer() % kMost, choices.below(6));
    return {text, static_cast<double>(std::strtof(text.c_str(), nullptr))};
}

std::string name(Choices& choices) {
    std::string text;
    for (unsigned n = choices.below(21); n > 0; --n) {
        const char c = static_cast<char>(' ' + choices.below(95));
        text += c == '{' || c == '}' ? '_' : c;
    }
    return text;
}

std::string fixed(double value, int width, int decimals) {
    char text[512];
    const int length = std::snprintf(text, sizeof text, "%*.*f", width, decimals, value);
    return length > width ? std::string(static_cast<std::size_t>(width), '*') : text;
}

double reread(double value, int decimals) {
    return std::strtod(fixed(value, 40, decimals).c_str(), nullptr);
}

}  // namespace vantelgis::fuzz
