#pragma once

#include <string>
#include <string_view>

#include "drop/calls.h"

/// What a drop target asks of Windows. Names and texts are UTF-8.
namespace vantelgis::drop {

bool isFolder(const std::string& name);

/// The absolute form of a name; empty if it has none.
std::string absoluteName(const std::string& name);

/// The file of this program, under the name that it has now.
std::string ownProgram();

/// Runs a program with the call's options in this console, hands it the list and waits for its end.
/// Gives its exit status, kNotStarted when the system can't start it.
inline constexpr int kNotStarted = -1;
int runProgram(const std::string& program, const Call& call);

/// Waits for any key; where there is no keyboard, for the end of standard input.
void waitForKey();

}  // namespace vantelgis::drop
