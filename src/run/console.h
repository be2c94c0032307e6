#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "text/number_field.h"
#include "text/text.h"

namespace vantelgis {

/// Writes text to the console as it stands. The console is a plain stream: nothing keeps track of
/// columns, and text without a line end is followed directly by whatever comes next. A `\n` in the
/// text becomes the platform's line end.
void consolePut(std::string_view text);

/// An integer in its shortest form.
inline void consolePut(std::integral auto value) {
    consolePut(IntegerText(static_cast<std::int64_t>(value)));
}

/// Writes texts and integers one behind the other, with no line end.
template <typename... Parts>
void consoleText(const Parts&... parts) {
    (consolePut(parts), ...);
}

/// The same with a line end behind them; with no part, an empty line.
template <typename... Parts>
void consoleLine(const Parts&... parts) {
    (consolePut(parts), ...);
    consolePut("\n");
}

/// Hands everything written so far to the system.
void consoleFlush();

/// Reads one whole line of standard input, cut at the target's capacity. False when standard input
/// is at its end: nobody can answer any more. Flushes the console first.
bool consoleReadLine(TextRef line);

/// Writes `text` (if it is empty "Enter command<CR> or <CR> to continue.") as a line and drops one
/// line of standard input. False when standard input was at its end, which ends the wait.
bool consolePause(std::string_view text);

/// Forgets what was written or read but not yet used, for another run in the same process.
void consoleReset();

/// Has everything that is written from now on handed to `sink` at once, in pieces of any size and
/// with LF as line end, in place of standard output; null leads it there again. What was written
/// before goes where it was meant to go.
void setConsoleSink(void (*sink)(std::string_view));

/// The standard streams of a program in whose process this one is a guest.
struct HostStreams {
    void (*write)(std::string_view text);              ///< LF as line end
    void (*flush)();                                   ///< hands over what was written
    std::size_t (*read)(char* out, std::size_t size);  ///< at most one line; 0 at the end
};

/// Has the console be those streams from now on, so that its text stands in order with the host's
/// and no line is read that the host is to read; null: the system's. `streams` must stay.
void setHostStreams(const HostStreams* streams);

/// Has standard input count as ended, for a host whose own input it is: nobody can answer.
void setConsoleUnattended(bool unattended);

}  // namespace vantelgis
