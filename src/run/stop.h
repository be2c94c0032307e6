#pragma once

#include <string_view>

#include "run/console.h"

namespace vantelgis {

// The ends of a run. Each writes out and closes every open file, and the process ends with status 0
// in every case: a failure shows in words alone.

/// The end without a prompt.
[[noreturn]] void endRun();

/// Has endRun call `handler` where it would end the process, for hosts that have many runs in one
/// process or something to write at the end of one: a handler that throws goes on behind its catch,
/// one that returns lets the process end. Null, as at the start: the process just ends.
void setEndHandler(void (*handler)());

/// Has `end` end the process from now on, for a host whose own files and buffers need the ordinary
/// end; it must not return.
void setProcessEnd(void (*end)());

/// The orderly stop: closes all file units without a line on the console, then an empty line, the
/// prompt "Press Enter to Close", and the end. For a host with message boxes, a box in their place.
[[noreturn]] void stopRun();

/// Writes each argument, a text or a number, as a line of its own (an empty text: an empty line),
/// and stops.
template <typename... Lines>
[[noreturn]] void stopWith(const Lines&... lines) {
    (consoleLine(lines), ...);
    stopRun();
}

/// Ends with `text` as the last line and no prompt.
[[noreturn]] void stopWithText(std::string_view text);

/// An empty line, "ERROR - Reading data", the console pause with no text, the end.
[[noreturn]] void stopReadingData();

/// An empty line, "ERROR - End of File encountered", the console pause with no text, the end.
[[noreturn]] void stopEndOfFile();

/// Where a question can never be answered because standard input is at its end: a line end,
/// "ERROR - End of File encountered", stopRun.
[[noreturn]] void stopUnanswered();

/// A file that has no message of its own can't be written, read or opened: a line end, "ERROR -
/// Writing file ", "ERROR - Reading file " or "ERROR - Can't open file: " with the name, stopRun.
[[noreturn]] void stopWritingFile(std::string_view name);
[[noreturn]] void stopReadingFile(std::string_view name);
[[noreturn]] void stopOpeningFile(std::string_view name);

/// The support desk's e-mail address.
inline constexpr std::string_view SUPPORT_ADDRESS = "support@vantelgis.example";

/// An impossible state: " Should not be here [where] - please contact ..." and stopRun.
[[noreturn]] void stopShouldNotBeHere(std::string_view where);

}  // namespace vantelgis
