#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vantelgis::gpkg {

/// What the lines between a string's header and its data say beside what the converter reads, in
/// the bytes of the archive.
class StringHeader {
  public:
    std::int64_t line = 0;  ///< of the header, from 1
    std::string type;       ///< what stands between "string" and the brace
    std::string model;
    std::string colour;
    std::string style;
    std::string breakline;
    std::optional<double> chainage;
    bool named = false;     ///< a `name` line was there
    bool levelled = false;  ///< a `z` line was there
    bool closed = false;    ///< a `closed` line says so

    /// Another string begins.
    void begin(std::int64_t lineNumber, std::string_view typeText);
    /// Looks at one more of its lines, without leading blanks.
    void take(std::string_view text);

  private:
    void takeClosedOrChainage(std::string_view text);
};

/// The value behind the word `model` at the start of a line; false for any other line.
bool takeModelLine(std::string_view line, std::string& model);

}  // namespace vantelgis::gpkg
