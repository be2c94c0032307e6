#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace vantelgis::gpkg {

/// Where the archive reader would have stopped the converter.
struct ReaderStop {
    std::string text;       ///< what it says, from its word of alarm on, in one line
    std::int64_t line = 0;  ///< the line read last, from 1; 0 when none was
    bool stopped = false;
};

/// What is wrong in the line of `file` where the reader stopped, in this program's words, with the
/// text of the line.
[[nodiscard]] std::string wordsOf(const ReaderStop& stop, std::string_view file);

/// Ends the call as a stop of the reader would, where that only warns.
[[noreturn]] void stopReader();

/// Calls `body`, which may use the archive reader on any unit: nothing of what that prints reaches
/// the console, nobody is asked, and where it would end the process the call ends. `unit` is the
/// archive's unit once `body` has opened it.
ReaderStop guardReader(const int& unit, const std::function<void()>& body);

}  // namespace vantelgis::gpkg
