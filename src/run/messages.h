#pragma once

#include <cstdint>

#include "run/message_record.h"

namespace vantelgis {

/// Reports the message in the lines of DMESSAGES: classifies and counts it by its first word,
/// writes `nBlank` empty lines and then its lines (none of it if `nBlank` is negative), and clears
/// them. Never stops the run.
void reportMessage(std::int32_t nBlank);

/// Clears the lines, the location and `oneLine`; counters, number and kind stay.
void clearMessage();

/// Sets all counters to 0.
void resetMessageCounters();

/// Holds the run until the person answers: an empty line, "Press Enter to Continue", one line read.
/// For a host with message boxes, a box in their place.
void pauseRun();

}  // namespace vantelgis
