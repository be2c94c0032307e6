#pragma once

#include <string_view>

#include "text/text.h"

namespace vantelgis {

/// Opens a file on the lowest free unit, with the opener's dialogue, and gives the unit in `unit`
/// (0 when none was allocated). `mode` is one of the codes in open_modes.h. An empty name and a
/// table with no free unit end the run.
void openUnit(int& unit, std::string_view mode, std::string_view name);

/// The opener: writes to the console what it tries to open, asks for another name when an input is
/// missing, offers to close a file that is open in this program, and waits for an output that can't
/// be opened, without limit. `name` becomes the name that was opened; `label` describes the file in
/// the question for a name, blank for none. `unit` is the unit to use, of the table or a number of
/// the host's own; below 1 it ends the run. It becomes 0 when an append to an existing file fails,
/// and stays for an unknown mode.
void openOnUnit(int& unit, TextRef name, std::string_view mode, std::string_view label);

/// Closes the file of a unit with a line on the console, frees the unit and sets `unit` to 0. A
/// unit that is not in use is left alone. What was written and may be lost stops the run with
/// stopWritingFile.
void closeUnit(int& unit);

/// The same for a file whose owner has a message of its own: false, with no line on the console and
/// `unit` as it was, when what was written to it may be lost.
[[nodiscard]] bool tryCloseUnit(int& unit);

}  // namespace vantelgis
