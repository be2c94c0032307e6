#pragma once

#include <string_view>

#include "run/exits.h"

namespace vantelgis {

// The ends of a run. Each writes out and closes every open file first, and the process always ends
// with status 0: a failure is told in words.

/// The end without a prompt.
[[noreturn]] void endRun();

/// Ends with `text` as the last line and no prompt.
[[noreturn]] void stopWithText(std::string_view text);

/// An empty line, "ERROR - Reading data", the console pause with no text, the end.
[[noreturn]] void stopReadingData();

/// An empty line, "ERROR - End of File encountered", the console pause with no text, the end.
[[noreturn]] void stopEndOfFile();

/// Where a question can never be answered because standard input is at its end: a line end,
/// "ERROR - End of File encountered", EXITS.
[[noreturn]] void stopUnanswered();

/// A file that has no message of its own can't be written, read or opened: the line "ERROR -
/// Writing file " (or Reading) and the name behind an empty line, or "ERROR - Can't open file: "
/// and the name behind a line end; then EXITS.
[[noreturn]] void stopWritingFile(std::string_view name);
[[noreturn]] void stopReadingFile(std::string_view name);
[[noreturn]] void stopOpeningFile(std::string_view name);

/// What ends the process. A test or fuzz driver replaces it at link time so that many runs fit in
/// one process.
[[noreturn]] void endProcess();

/// The support desk's e-mail address.
inline constexpr std::string_view SUPPORT_ADDRESS = "support@vantelgis.example";

/// An impossible state: " Should not be here [where] - please contact ..." and EXITS.
[[noreturn]] void stopShouldNotBeHere(std::string_view where);

}  // namespace vantelgis
