#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "run/open_modes.h"
#include "run/platform.h"
#include "run/stop.h"
#include "text/limits.h"
#include "text/text.h"

namespace vantelgis {

/// Size of a file's buffer in bytes.
inline constexpr std::size_t kBufferSize = std::size_t{256} * 1024;

/// An open file with its buffer. While reading, `begin` to `end` are the bytes in the buffer that
/// are not yet taken; while writing, those up to `end` are not yet handed over.
struct OpenFile {
    platform::FileHandle handle = platform::kNoFile;  ///< kNoFile: closed under its owner
    platform::FileHandle lock = platform::kNoFile;    ///< holds the lock of an earlier unit
    const OpenMode* mode = nullptr;
    platform::FileIdentity identity;
    Path name;  ///< as it was opened
    std::size_t begin = 0;
    std::size_t end = 0;
    std::int64_t bufferStart = 0;  ///< file position (from 0) of the buffer's first byte
    std::int64_t lineStart = 0;    ///< reading: file position of the line read last
    std::int64_t lineNumber = 0;   ///< reading: lines read, so the number (from 1) of the last one
    bool holdsInput = false;       ///< the buffer's bytes were read; else they are to be written
    bool ended = false;            ///< reading: nothing comes behind the buffer's bytes
    bool failed = false;           ///< the system refused a read, a write or a change of position
    bool failureGiven = false;     ///< reading: the caller has got the failure as a result
    std::size_t blockSize =
        kBufferSize;               ///< writing: so many bytes or more are handed over at once
    bool ownerReports = false;     ///< its owner has a message of its own for a failed write
    char buffer[kBufferSize + 1];  ///< with a place behind the last byte for a mark
};

/// A unit: the number that stands for a file. A unit in use may have none (its opening failed or
/// was of an unknown mode).
struct Unit {
    int number = 0;
    bool used = false;
    std::unique_ptr<OpenFile> file;
};

/// The table's units, numbered from `firstUnit` on.
extern Unit tableUnits[kUnitCount];
extern int firstUnit;

/// Starts the file units: all are free, numbered from the larger of 9 and `base`, plus 1, and the
/// opener's settings have their start values. Closes what an earlier run left open. Without this
/// call the first unit is 10.
void initialiseUnits(int base);

/// The lowest unit not in use, null if all are.
Unit* freeUnit();

/// The unit of that number, null if neither the table nor addUnit has one.
Unit* findUnit(int unit);

/// The unit of that number, which may be a host's own, above 0, that the table has none of.
Unit& addUnit(int unit);

/// The unit has a file that can be read or written.
[[nodiscard]] bool isOpen(int unit);

/// The file of a unit; a unit without one stops the run with stopReadingData. It may have been
/// closed under its owner: its handle is then kNoFile.
inline OpenFile& fileOf(int unit) {
    const std::int64_t place = std::int64_t{unit} - firstUnit;
    Unit* const slot = place >= 0 && place < kUnitCount ? &tableUnits[place] : findUnit(unit);
    if (slot == nullptr || !slot->file) stopReadingData();
    return *slot->file;
}

/// The unit on which a file is open, 0 if it is on none. Files are compared, not spellings.
int unitOf(const platform::FileIdentity& identity);

/// Opens a file and ties it to a unit; false when the system refuses. A further unit for an output
/// that is open on one of this program's takes no lock of its own, or the program would lock itself
/// out, but shares that of the first.
[[nodiscard]] bool openOnSystem(Unit& unit, std::string_view name, const OpenMode& mode);

/// Ties a file that the platform has opened to a unit that has none.
void attachFile(Unit& unit, platform::FileHandle handle, const OpenMode& mode,
                std::string_view name);

/// Has the bytes written to a unit handed over once there are `blockSize` of them, and not only
/// when the buffer is full; at 0 or below nothing changes.
void setBlockSize(int unit, int blockSize);

/// Writes out and closes a unit's file, if it has one, without a line on the console. False when
/// not everything could be written.
bool closeFileOf(Unit& unit);

/// The same for a unit that has a file and whose owner, who is not asked, keeps the number: reading
/// it then stops the run with stopReadingData, and what is written to it counts as refused.
bool closeUnderOwner(Unit& unit);

/// Closes the files of all units in the order of their numbers, which frees the units. The console
/// gets a line only for a file whose last bytes can't be written, unless that was reported before.
void closeAllUnits();

/// The name behind a unit as it was opened; blank if it has no file.
std::string_view unitName(int unit);

}  // namespace vantelgis
