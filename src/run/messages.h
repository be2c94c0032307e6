#pragma once

#include "run/message_record.h"

namespace vantelgis {

/// Clears the lines, the location and `oneLine`; counters, number and kind stay.
extern "C" void DMESSAGECLEAR();

/// Sets all counters to 0.
extern "C" void DMESSAGERESETCOUNTERS();

/// Writes a rule of 80 underscores to the console, and a second one to `unit` if that is above 0.
extern "C" void DLINE(int unit);

/// Holds the run until the person answers: an empty line, "Press Enter to Continue", one line read.
extern "C" void DPAUSE();

}  // namespace vantelgis
