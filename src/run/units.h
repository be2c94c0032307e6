#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "run/open_modes.h"
#include "run/opener_settings.h"
#include "run/platform.h"
#include "text/limits.h"
#include "text/text.h"

namespace vantelgis {

/// Size of a file's buffer in bytes.
inline constexpr std::size_t kBufferSize = std::size_t{256} * 1024;

/// An open file with its buffer and its own position. Reading, `begin` to `end` are the bytes not
/// yet taken; writing, `end` is where the next byte goes.
struct OpenFile {
    platform::FileHandle handle = platform::kNoFile;  ///< kNoFile: closed under its owner
    platform::FileHandle lock = platform::kNoFile;    ///< holds the lock of an earlier unit
    const OpenMode* mode = nullptr;
    platform::FileIdentity identity;
    Path name;  ///< as it was opened
    std::size_t begin = 0;
    std::size_t end = 0;
    std::int64_t bufferStart = 0;         ///< file position of the buffer's first byte
    std::int64_t lineStart = 0;           ///< file position of the line read last
    bool ended = false;                   ///< the system has no further byte, or a read failed
    bool failed = false;                  ///< a write, or a read, was refused
    std::size_t blockSize = kBufferSize;  ///< bytes that are handed over together
    bool failureTold = false;             ///< a failed read was given to its caller
    bool ownerReports = false;            ///< its owner has a message of its own for a failed write
    char buffer[kBufferSize];
};

/// A unit: the number that stands for an open file. The table has kUnitCount of them.
struct Unit {
    int number = 0;     ///< `fileUnit`
    bool used = false;  ///< `fileUsed`
    std::unique_ptr<OpenFile> file;
};

/// Starts the file units: all are free, numbered from the larger of 9 and `base`, plus 1, and the
/// opener's settings have their start values. Closes what an earlier run left open. Call it first
/// of all.
void initialiseUnits(int base);

/// The lowest unit not in use, null if all are.
Unit* freeUnit();

/// The slot of a unit number, null if it is in no slot.
Unit* findUnit(int unit);

/// The file of a unit, which must have one. It may have been closed under its owner: its handle is
/// then kNoFile.
OpenFile& fileOf(int unit);

/// The unit on which a file is open, 0 if it is on none. Files are compared, not spellings.
int unitOf(const platform::FileIdentity& identity);

/// Opens a file and ties it to a unit; false when the system refuses. A further unit for an output
/// that is open on one of this program's takes no lock of its own, or the program would lock itself
/// out, but shares that of the first.
[[nodiscard]] bool openOnSystem(Unit& unit, std::string_view name, const OpenMode& mode);

/// Ties an opened file to a unit.
void attachFile(Unit& unit, platform::FileHandle handle, const OpenMode& mode,
                std::string_view name);

/// Has the bytes written to a unit handed over in blocks of this size; not above 0: as they best
/// are.
void setBlockSize(int unit, int blockSize);

/// Writes out and closes a unit's file, if it has one, without a line on the console. False when
/// not everything could be written.
bool closeFileOf(Unit& unit);

/// The same under its owner, who keeps the unit: what it then reads stops the run with
/// stopReadingData, what it writes counts as refused.
bool closeUnderOwner(Unit& unit);

/// Closes the files of all units in slot order, without a line on the console. A file that can't be
/// written out is named in a line of its own.
void closeAllUnits();

/// The name behind a unit as it was opened; blank if it has no file.
std::string_view unitName(int unit);

}  // namespace vantelgis
