#pragma once

#include <functional>
#include <string>

/// The converter's own readers in this process: what would stop a run stops only the look.
namespace vantelgis::batch {

struct ReaderStop {
    bool stopped = false;
    std::string message;  ///< the lines of the message with which the run would stop, with LF
};

/// Runs `body` with all units and layers free. What it writes to the console goes nowhere; nobody
/// answers it.
ReaderStop guarded(const std::function<void()>& body);

/// The name under which a reader finds a file of the current folder, whatever it begins with.
std::string readerArgument(std::string_view name);

}  // namespace vantelgis::batch
