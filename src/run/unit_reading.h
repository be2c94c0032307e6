#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "run/units.h"
#include "text/free_format.h"
#include "text/limits.h"

namespace vantelgis {

enum class ReadResult {
    ok,
    end,     ///< no byte was left, or fewer than wanted
    failed,  ///< the system reports a failure
};

/// The next line without its end (LF or CR LF; the last line needs none), cut at kLineCapacity, as
/// a view that is valid until the next operation on that unit. A caller with a smaller capacity
/// cuts the view.
ReadResult readLine(int unit, std::string_view& line);

/// Takes the line that ends in front of `behind`, a place in the file's buffer.
inline void takeLine(OpenFile& file, std::size_t behind) {
    file.lineStart = file.bufferStart + static_cast<std::int64_t>(file.begin);
    file.begin = behind;
    ++file.lineNumber;
}

/// The number (from 1) of the line that readLine gave last, counted from the start of the file; 0
/// before the first, and for a unit without a file. A line that backspaceUnit went back over counts
/// again when it is read again. Reads of bytes count no lines.
std::int64_t lineNumber(int unit);

/// Hands over what was written to a file; reading goes on there.
void turnToReading(OpenFile& file);

/// The file that a unit reads from. One that was closed under its owner stops the run.
inline OpenFile& readableFile(int unit) {
    OpenFile& file = fileOf(unit);
    if (file.handle == platform::kNoFile) stopReadingData();
    if (!file.holdsInput) turnToReading(file);
    return file;
}

/// atEnd of a file with no byte left in its buffer.
bool atEndBehindBuffer(OpenFile& file);

/// True when the next read would meet the end of the file, also after a failed read; false when it
/// will fail. The view of the line read last stays valid after true; after false it is gone.
inline bool atEnd(int unit) {
    OpenFile& file = readableFile(unit);
    return file.begin == file.end && atEndBehindBuffer(file);
}

/// Goes back to the start of the file.
void rewindUnit(int unit);

/// Goes back to the start of the line read last.
void backspaceUnit(int unit);

/// What the reads below come to when the buffer holds fewer bytes than they want.
ReadResult readSplitBytes(OpenFile& file, void* out, std::size_t size);
ReadResult skipBehindBuffer(OpenFile& file, std::int64_t count);
std::string_view readRefilled(OpenFile& file, std::size_t most);

/// Exactly `size` bytes into `out`.
inline ReadResult readBytes(int unit, void* out, std::size_t size) {
    OpenFile& file = readableFile(unit);
    if (file.end - file.begin < size) return readSplitBytes(file, out, size);
    std::memcpy(out, file.buffer + file.begin, size);
    file.begin += size;
    return ReadResult::ok;
}

/// Passes over `count` bytes (not below 0); `end` when the file has fewer.
inline ReadResult skipBytes(int unit, std::int64_t count) {
    OpenFile& file = readableFile(unit);
    if (count > static_cast<std::int64_t>(file.end - file.begin))
        return skipBehindBuffer(file, count);
    file.begin += static_cast<std::size_t>(count);
    return ReadResult::ok;
}

/// A view of the next bytes, at least 1 and at most `most` of them, which are then taken. Empty at
/// the end of the file or at a failure; a further read shows which.
inline std::string_view readSome(int unit, std::size_t most) {
    OpenFile& file = readableFile(unit);
    if (file.end - file.begin < most) return readRefilled(file, most);
    file.begin += most;
    return {file.buffer + file.begin - most, most};
}

/// Two reals in free format from the next line and, if that holds too few, the ones behind it;
/// what stands behind the second number is dropped. Each line counts by its first `capacity`
/// characters. `Item::bad` also stands for a failed read.
Item readPair(int unit, double& x, double& y, std::size_t capacity);
/// The same, of any lines: readPair itself reads a line of two plain decimals and no more.
Item readAnyPair(int unit, double& x, double& y, std::size_t capacity);

}  // namespace vantelgis
