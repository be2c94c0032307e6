#include "archive/writer.h"

#include "run/opener.h"

namespace vantelgis {

namespace {

constexpr std::string_view kBlockEnd = "  }\r\n";

template <std::size_t Size>
constexpr std::string_view textOf(const char (&field)[Size]) {
    return {field, Size};
}

}  // namespace

int d12CreateArchive(std::string_view path, std::string_view modelName) {
    int unit = 0;
    openUnit(unit, "O ", path);
    d12WriteNull(unit);
    d12WriteModel(unit, modelName);
    return unit;
}

void d12WriteNull(int unit) {
    put(unit, "null -999\r\n");
}

void d12WriteModel(int unit, std::string_view modelName) {
    OutputLine line{unit, 512};
    line.text("model \"");
    line.text(modelName);
    line.text("\"\r\n");
    line.end();
}

// All that is the same stands in one text: there may be as many strings as vertices.
void d12BeginString(OutputLine& line, std::string_view type, std::string_view name) {
    line.text("string ");
    line.text(type);
    line.text(" {\r\n  name      \"");
    line.text(name);
    line.text(
        "\"\r\n"
        "  chainage  0\r\n"
        "  breakline line\r\n"
        "  colour    red\r\n"
        "  style     1\r\n"
        "\r\n"
        "  data {");
    line.end();
}

void d12BeginString(OutputLine& line, const D12StringHead& head) {
    const auto add = [&line](std::string_view word, std::string_view value) {
        if (value.empty()) return;
        line.text(word);
        line.text(value);
    };
    line.text("string ");
    line.text(head.type);
    line.text(" {\r\n  name      \"");
    line.text(head.name);
    line.text("\"");
    add("\r\n  chainage  ", head.chainage);
    add("\r\n  breakline ", head.breakline);
    add("\r\n  colour    ", head.colour);
    add("\r\n  style     ", head.style);
    add("\r\n  z         ", head.level);
    line.text("\r\n\r\n  data {");
    line.end();
}

void d12EndString(OutputLine& line) {
    line.text("  }\r\n}\r\n\r\n");
    line.handOver();
}

void d12BeginLocations(int unit) {
    put(unit, "  // xy location of symbol\r\n  data_3d {\r\n");
}

void d12AddLocation(OutputLine& line, double x, double y, const D12SymbolText& symbol) {
    line.text("    ");
    line.fixed<20, 4>(x);
    line.text(" ");
    line.fixed<20, 4>(y);
    line.text(" ");
    line.text(textOf(symbol.size));
    line.end();
}

void d12BeginSymbols(int unit) {
    put(unit, "  symbol_data{\r\n");
}

D12SymbolText::D12SymbolText(float sizeValue, float angleValue) {
    fixedField<sizeof size, 4>(size, static_cast<double>(sizeValue));
    fixedField<sizeof angle, 2>(angle, static_cast<double>(angleValue));
}

// The style has one quote too many at the front, as its readers are used to.
void d12AddSymbol(OutputLine& line, const D12SymbolText& symbol) {
    line.text(
        "    properties {\r\n"
        "      style     \"\"ARROW 30 BEARING\"\r\n"
        "      colour    red\r\n"
        "      size    ");
    line.text(textOf(symbol.size));
    line.text("\r\n      rotation ");
    line.text(textOf(symbol.angle));
    line.text(
        "\r\n"
        "      offset    0\r\n"
        "      raise     0\r\n"
        "    }");
    line.end();
}

void d12EndBlock(int unit) {
    put(unit, kBlockEnd);
}

}  // namespace vantelgis
