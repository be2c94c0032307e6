#pragma once

#include <string_view>

namespace vantelgis {

// The set and the program that it is a guest of: when its text reaches the host's standard output.

/// Hands what a routine has printed over to the host before control goes back to it, unless the
/// host wants to do that itself. Every routine that prints and returns holds one.
class HandOver {
  public:
    HandOver() = default;
    ~HandOver();
    HandOver(const HandOver&) = delete;
    HandOver& operator=(const HandOver&) = delete;
};

/// False: what is printed waits in the host's standard output until the host hands that over.
void setHandOver(bool atOnce);

/// Writes `text` without trailing blanks as a line to a unit. A unit that isn't open stops the run
/// with the line "ERROR - Writing file unit " and its number.
void writeLineTo(int unit, std::string_view text);

}  // namespace vantelgis
