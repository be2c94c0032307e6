#pragma once

#include <string_view>

#include "run/console.h"
#include "text/text.h"

namespace vantelgis {

// What opener and closer say and ask: on the console, or in message boxes for a host that wants
// them. A question that nobody can answer any more ends the run.

/// Writes to the console, and to the host's log file.
void openerPut(std::string_view text);

/// Texts one behind the other, with no line end.
template <typename... Parts>
void openerText(const Parts&... parts) {
    (openerPut(parts), ...);
}

/// The same with a line end.
template <typename... Parts>
void openerLine(const Parts&... parts) {
    openerText(parts..., std::string_view("\n"));
}

/// A text and a unit number in four columns, as a line.
void openerUnitLine(std::string_view text, int unit);

/// "close it?": true to close the file that is open, false to ask for another name. In a box No
/// stops the run.
bool askToClose(std::string_view name);

/// Asks for the name of a file that is missing; `name` stays when the person enters none. `label`
/// describes the file, blank for none.
void askForName(TextRef name, std::string_view label);

/// Says that an output can't be opened and waits for the person to do something about it.
/// `folderMade` says, over the attempts at one file, that its folder was made without asking.
void waitForOutput(std::string_view name, bool& folderMade);

/// A file with an empty name was to be opened: says so and ends the run.
[[noreturn]] void stopForEmptyName();

}  // namespace vantelgis
