#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <string>
#include <string_view>

// A platform layer of its own: files, console and keyboard are held in memory, and each operation
// can be made to fail. A program that links it in place of the system's one touches no real file.
namespace vantelgis::memory {

/// Names have forward slashes; a folder is there when a file in it is.
using Files = std::map<std::string, std::string, std::less<>>;

enum class Operation { open, read, write, seek, empty, size, close };

/// One use of an operation.
struct Use {
    Operation operation = Operation::open;
    std::string name;           ///< of the file
    std::int64_t position = 0;  ///< in the file, where the operation begins
    bool forOutput = false;     ///< the file is open to be written
};

struct System {
    Files files;
    std::string console;  ///< what was written to standard output
    std::string typed;    ///< what is left of standard input
    std::size_t mostPerRead = std::numeric_limits<std::size_t>::max();  ///< bytes given at once
    std::size_t diskSize = std::numeric_limits<std::size_t>::max();     ///< bytes of all files

    bool programRuns = false;  ///< what is done now is the program's, not the platform's

    std::int64_t uses = 0;      ///< operations used so far
    std::int64_t faultAt = -1;  ///< the number of the use that fails, from 0
    bool faultStays = false;    ///< the operation keeps failing there, as on a bad disk
    bool faultMet = false;
    Use failed;  ///< the use that failed
};

/// The one there is. A default one in its place has nothing stored and no fault; files that were
/// open are closed first.
extern System system;
void closeAllFiles();

}  // namespace vantelgis::memory
