#pragma once

#include "run/message_record.h"

namespace vantelgis {

/// Reports the message in `DMESSAGES.text1` to `text3`: classifies and counts it by its first word,
/// writes `nBlank` empty lines and then its lines (none of it if `nBlank` is negative), and clears
/// them. Never stops the run.
void reportMessage(std::int32_t nBlank);

/// Clears the lines, the location and `oneLine`; counters, number and kind stay.
void clearMessage();
extern "C" void DMESSAGECLEAR();

/// Sets all counters to 0.
void resetMessageCounters();
extern "C" void DMESSAGERESETCOUNTERS();

/// Writes a rule of 80 underscores to the console, and a second one to `unit` if that is above 0.
extern "C" void DLINE(int unit);

/// Holds the run until the person answers: an empty line, "Press Enter to Continue", one line read.
/// For a host with message boxes, a box in their place.
void pauseRun();
extern "C" void DPAUSE();

}  // namespace vantelgis
