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

/// Goes to the folder of a file and gives the name by which a reader finds it there, as the
/// converter does in the folder of a run.
std::string enterFolderOf(const std::string& file);

}  // namespace vantelgis::batch
