#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "run/byte_order.h"
#include "run/units.h"
#include "text/number_field.h"

namespace vantelgis {

// Output is composed straight in the unit's buffer. A write that the system refuses is noticed when
// the buffer is handed over: a unit whose owner reports failures only remembers it (writeFailed),
// any other one stops the run with stopWritingFile.

/// Most bytes that `reserve` can be asked for.
inline constexpr std::size_t kLargestReserve = 65536;

/// Hands the buffered bytes to the system; false when that, or an earlier write, failed.
bool flushFile(OpenFile& file);

/// The file that a unit writes to, with room for `size` bytes in its buffer.
OpenFile& makeRoom(int unit, std::size_t size);

/// A place for at most `size` bytes; `commit` tells how far it was filled.
inline char* reserve(int unit, std::size_t size) {
    OpenFile& file = makeRoom(unit, size);
    return file.buffer + file.end;
}
inline void commit(int unit, const char* end) {
    OpenFile& file = fileOf(unit);
    file.end = static_cast<std::size_t>(end - file.buffer);
}

/// Bytes or text as they stand, of any length.
void put(int unit, std::string_view text);

/// CR LF.
void endLine(int unit);

/// `text` without trailing blanks, and CR LF.
void putLine(int unit, std::string_view text);

/// A number field, see fixedField.
inline void putFixed(int unit, double value, int width, int decimals) {
    commit(unit, fixedField(reserve(unit, kMaxFieldWidth), value, width, decimals));
}

/// An integer in its shortest form.
inline void putInteger(int unit, std::int64_t value) {
    put(unit, IntegerText(value));
}

/// One number in the byte order of the unit's mode.
template <typename Number>
void putValue(int unit, Number value) {
    OpenFile& file = makeRoom(unit, sizeof value);
    const bool big = file.mode->content == Content::bigEndianBytes;
    const auto bytes = bytesOf(value, big ? std::endian::big : std::endian::little);
    std::memcpy(file.buffer + file.end, bytes.data(), bytes.size());
    file.end += bytes.size();
}

/// Its owner has a message of its own for a failed write on this unit and asks `writeFailed`.
void ownerReportsWriteFailures(int unit);

/// True when a write on this unit was refused, or its file was closed under its owner.
bool writeFailed(int unit);

/// Hands everything over; false when that, or an earlier write, failed.
bool flushUnit(int unit);

/// Overwrites bytes from a position (from 0) on, behind everything written so far; the unit is only
/// to be closed then. False when a write failed.
bool patchBytes(int unit, std::int64_t position, std::string_view bytes);

/// Cuts the file to nothing and starts again; false at a failure.
bool emptyUnit(int unit);

}  // namespace vantelgis
