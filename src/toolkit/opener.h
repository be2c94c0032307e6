#pragma once

#include <string_view>

#include "run/opener_settings.h"
#include "text/text.h"

namespace vantelgis {

// Files are reached through units, numbers above 0, and opened through one dialogue with the person
// at the console. A mode is two characters, the second of which may lack if it is a blank:
//
//   "I "  text, read                      "O ", "F "  text, replaced
//   "BI"  bytes, low byte first, read     "BO"  bytes, low byte first, replaced
//   "BE"  bytes, high byte first, read    "BN"  bytes, high byte first, replaced
//   "UI"  records, read                   "UO"  records, replaced
//   "A "  text, added to the end          "AB"  bytes, low byte first, added to the end
//   "S "  text, kept and shared           "SB", "SE"  bytes, low or high first, kept and shared
//   "IO"  text, both ways, opened without a word

extern "C" {

/// Starts the file units: all are free, numbered from the larger of 9 and `base`, plus 1, and the
/// settings have their start values. What is open is closed. A host that doesn't call it has the
/// units from 10 on.
void FILESINIT(int base);

/// Opens a file on the lowest free unit, with the opener's dialogue, and gives the unit in `unit`
/// (0 when none was allocated). An empty name and a table with no free unit end the run.
void FILEOPEN(int& unit, std::string_view mode, std::string_view name);

/// The opener: writes to the console what it tries to open, asks for another name when an input is
/// missing, offers to close a file that is open in this program, and waits for an output that can't
/// be opened, without limit. `name` becomes the name that was opened; `label` describes the file in
/// the question for a name, blank for none. `unit` is the unit to use, of the table or any other
/// number above 0; below 1 it ends the run. It becomes 0 when an append to an existing file fails,
/// and stays for an unknown mode.
void OPENER(int& unit, TextRef name, std::string_view mode, std::string_view label);

/// Closes the file of a unit with a line on the console, frees the unit and sets `unit` to 0. A
/// unit that is not in use is left alone. What was written and may be lost stops the run with
/// "ERROR - Writing file " and its name.
void CLOSER(int& unit);

}  // extern "C"

}  // namespace vantelgis
