#pragma once

#include <cstring>
#include <string_view>

#include "run/unit_writing.h"

namespace vantelgis {

// The writer of archives. Units are open for output; a write that the system refuses stops the run.

/// Creates the archive `path` and writes its head: the null value, the model line and an empty
/// line. Gives its unit.
int d12CreateArchive(std::string_view path, std::string_view modelName);

/// The null value with which the head begins, and the model line behind it. A further model line
/// begins a further model.
inline constexpr float kWrittenNull = -999.0F;
void d12WriteNull(int unit);
void d12WriteModel(int unit, std::string_view modelName);

/// Writes a string's lines up to the start of its data: `type` is 2d or 3d.
void d12BeginString(OutputLine& line, std::string_view type, std::string_view name);

/// What can stand in front of a string's data, each text as it goes into the file; the values are
/// those of a string that says nothing else. One that is empty, but for the name, has no line.
struct D12StringHead {
    std::string_view type;
    std::string_view name;  ///< without its quotes
    std::string_view chainage = "0";
    std::string_view breakline = "line";
    std::string_view colour = "red";
    std::string_view style = "1";
    std::string_view level;  ///< of a 2d string, its `z` line
};
void d12BeginString(OutputLine& line, const D12StringHead& head);

/// Room for the lines of many vertices or symbols at a time.
inline constexpr std::size_t kLinesRoom = 16384;

/// Begins the line of a vertex with its x and y; a third number may follow.
inline void d12AddVertex(OutputLine& line, double x, double y) {
    constexpr int kIndent = 4;
    constexpr int kWidth = 16;
    char* const out = line.place(kIndent + 2 * kWidth);
    std::memset(out, ' ', kIndent);
    char* const behindX = fixedField<kWidth, 5>(out + kIndent, x);
    line.filled(fixedField<kWidth, 5>(behindX, y));
}
/// The elevation behind them.
inline void d12AddElevation(OutputLine& line, float z) {
    line.fixed<12, 4>(static_cast<double>(z));
}

/// Writes the end of a string's data and of the string.
void d12EndString(OutputLine& line);

/// The numbers of a result's symbol, an arrow, as both blocks below show them: its size, and the
/// direction, in degrees, in which it points.
struct D12SymbolText {
    D12SymbolText(float size, float angle);
    char size[10];
    char angle[6];
};

/// The blocks of a result: first all locations, then, for vectors, all symbols in the same order.
void d12BeginLocations(int unit);
void d12AddLocation(OutputLine& line, double x, double y, const D12SymbolText& symbol);
void d12BeginSymbols(int unit);
void d12AddSymbol(OutputLine& line, const D12SymbolText& symbol);
void d12EndBlock(int unit);

}  // namespace vantelgis
