#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "run/byte_order.h"
#include "run/units.h"
#include "text/constant_field.h"
#include "text/number_field.h"

namespace vantelgis {

// Output is composed straight in the unit's buffer. A write that the system refuses is noticed when
// the buffer is handed over: a unit whose owner reports failures only remembers it (writeFailed),
// any other one stops the run with stopWritingFile.

/// Most bytes that `reserve` can be asked for.
inline constexpr std::size_t kLargestReserve = 65536;

/// Hands the buffered bytes to the system; false when that, or an earlier write, failed.
bool flushFile(OpenFile& file);

/// Makes a file's buffer ready for writing, and empty; stops the run when that fails and the owner
/// doesn't report it.
void clearBuffer(OpenFile& file);

/// The file that a unit writes to, with room for `size` bytes in its buffer.
inline OpenFile& makeRoom(int unit, std::size_t size) {
    OpenFile& file = fileOf(unit);
    if (file.holdsInput || kBufferSize - file.end < size || file.end >= file.blockSize ||
        file.handle == platform::kNoFile || file.failed)
        clearBuffer(file);
    return file;
}

/// A place for at most `size` bytes (up to kLargestReserve), and how far it was filled.
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

/// Lines composed straight in a unit's buffer, one or many behind each other. Room for at least
/// `room` bytes is made at a time, so that most pieces cost no more than their copy; a text of any
/// length fits. Nothing else may write to the unit from the first piece to the line's end.
class OutputLine {
  public:
    OutputLine(int unit, std::size_t room) : unit_(unit), room_(room) { open(room); }

    /// Text, or bytes, as they stand.
    void text(std::string_view s) {
        if (roomLeft() < s.size()) return longText(s);
        if (!s.empty()) std::memcpy(out_, s.data(), s.size());
        out_ += s.size();
    }
    /// A number field, see fixedField; `width` is at most kMaxFieldWidth.
    void fixed(double value, int width, int decimals) {
        need(static_cast<std::size_t>(width));
        out_ = fixedField(out_, value, width, decimals);
    }
    /// The same for a width and decimals that are known in advance.
    template <int Width, int Decimals>
    void fixed(double value) {
        need(Width);
        out_ = fixedField<Width, Decimals>(out_, value);
    }
    /// An integer in its shortest form.
    void integer(std::int64_t value) { text(IntegerText(value)); }
    /// A place for `size` bytes, and how far it was filled.
    char* place(std::size_t size) {
        need(size);
        return out_;
    }
    void filled(char* behind) { out_ = behind; }
    /// CR LF. A further line may follow.
    void end() {
        need(2);
        std::memcpy(out_, "\r\n", 2);
        out_ += 2;
        handOver();
    }
    /// Ends without a line end: what follows goes on behind it.
    void handOver() { file_->end = static_cast<std::size_t>(out_ - file_->buffer); }

  private:
    [[nodiscard]] std::size_t roomLeft() const { return static_cast<std::size_t>(limit_ - out_); }
    void need(std::size_t size) {
        if (roomLeft() < size) reopen(size);
    }
    void open(std::size_t size) {
        file_ = &makeRoom(unit_, size);
        out_ = file_->buffer + file_->end;
        limit_ = out_ + size;
    }
    void reopen(std::size_t size);
    void longText(std::string_view s);

    int unit_;
    std::size_t room_;
    OpenFile* file_;
    char* out_;
    const char* limit_;
};

/// One number in the byte order of the unit's mode.
template <typename Number>
void putValue(int unit, Number value) {
    OpenFile& file = makeRoom(unit, sizeof value);
    const auto bytes = bytesOf(value, byteOrderOf(*file.mode));
    std::memcpy(file.buffer + file.end, bytes.data(), bytes.size());
    file.end += bytes.size();
}

/// Its owner has a message of its own for a failed write on this unit and asks `writeFailed`.
void ownerReportsWriteFailures(int unit);

/// True when a write on this unit was refused, or its file was closed under its owner.
inline bool writeFailed(int unit) {
    return fileOf(unit).failed;
}

/// Hands everything over; false when that, or an earlier write, failed.
bool flushUnit(int unit);

/// Overwrites bytes from a position (from 0) on, behind everything written so far; the unit is only
/// to be closed then. False when a write failed.
bool patchBytes(int unit, std::int64_t position, std::string_view bytes);

/// Cuts the file to nothing and starts again; false at a failure.
bool emptyUnit(int unit);

}  // namespace vantelgis
