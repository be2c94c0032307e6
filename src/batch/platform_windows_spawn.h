#pragma once

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <string>
#include <vector>

namespace vantelgis::batch {

/// A process that was started and the job that holds it with all it starts; both handles are the
/// caller's. Null when the system refused.
struct Spawned {
    HANDLE process = nullptr;
    HANDLE job = nullptr;
    DWORD number = 0;
};

/// Starts a program with these standard streams in a group of its own. It inherits nothing else.
Spawned spawn(const std::string& program, const std::vector<std::string>& arguments, HANDLE input,
              HANDLE output, HANDLE error);

/// A file that leads nowhere and never has anything to read.
HANDLE openNowhere();

/// The name of the event by which a worker is asked to end.
std::wstring endEventName(DWORD process);

}  // namespace vantelgis::batch
