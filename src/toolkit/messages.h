#pragma once

#include <cstdint>

#include "run/message_record.h"

namespace vantelgis {

extern "C" {

/// Reports the message in the lines of DMESSAGES: classifies and counts it by its first word,
/// writes `nBlank` empty lines and then its lines to the console (none of it if `nBlank` is
/// negative), and clears them. Never stops the program; a caller that wants to stop calls EXITS
/// next.
void DMESSAGE(std::int32_t nBlank);

/// Clears the lines, the location and `oneLine` of DMESSAGES; counters, number and kind stay.
void DMESSAGECLEAR();

/// Sets all counters of DMESSAGES to 0.
void DMESSAGERESETCOUNTERS();

/// Writes a rule of 80 underscores to the console, and a second one to `unit` if that is above 0.
void DLINE(int unit);

/// Holds the run until the person answers: an empty line, "Press Enter to Continue", one line read.
/// In boxMode of the opener's settings a message box in their place.
void DPAUSE();

/// The orderly stop: closes all file units without a line on the console, then an empty line, the
/// prompt "Press Enter to Close" (in boxMode a message box), and the end of the process with status
/// 0. Never returns.
[[noreturn]] void EXITS();

}  // extern "C"

}  // namespace vantelgis
