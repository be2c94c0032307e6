#include "run/unit_reading.h"

#include <algorithm>
#include <cstring>

#include "run/plain_line.h"
#include "run/unit_writing.h"

namespace vantelgis {

// The system refuses to read a file that is output alone.
void turnToReading(OpenFile& file) {
    static_cast<void>(flushFile(file));
    file.lineStart = file.bufferStart;
    file.holdsInput = true;
    file.ended = false;
}

namespace {

// Moves the bytes from `keepFrom` on to the buffer's start and reads behind them. False when
// nothing more comes.
bool refill(OpenFile& file, std::size_t keepFrom) {
    if (file.ended) return false;
    const std::size_t kept = file.end - keepFrom;
    if (keepFrom > 0) std::memmove(file.buffer, file.buffer + keepFrom, kept);
    file.bufferStart += static_cast<std::int64_t>(keepFrom);
    file.begin -= keepFrom;
    file.end = kept;
    const std::int64_t count =
        platform::readFile(file.handle, file.buffer + kept, kBufferSize - kept);
    if (count > 0) {
        file.end += static_cast<std::size_t>(count);
        return true;
    }
    file.ended = true;
    file.failed = count < 0;
    file.failureGiven = false;
    return false;
}

bool hasBytes(OpenFile& file) {
    return file.begin < file.end || refill(file, file.begin);
}

ReadResult endOrFailure(OpenFile& file) {
    file.failureGiven = file.failed;
    return file.failed ? ReadResult::failed : ReadResult::end;
}

void moveTo(OpenFile& file, std::int64_t position) {
    file.failureGiven = false;
    const std::int64_t bufferEnd = file.bufferStart + static_cast<std::int64_t>(file.end);
    if (position >= file.bufferStart && position <= bufferEnd) {
        file.begin = static_cast<std::size_t>(position - file.bufferStart);
        return;
    }
    file.begin = file.end = 0;
    file.bufferStart = position;
    file.failed = !platform::seekFile(file.handle, position);
    file.ended = file.failed;
}

std::string_view lineBetween(const char* begin, const char* end) {
    if (end != begin && end[-1] == '\r') --end;
    return {begin, std::min(static_cast<std::size_t>(end - begin), kLineCapacity)};
}

// A line that fills the whole buffer: its first characters stay, the rest is read over.
ReadResult readLongLine(OpenFile& file, std::string_view& line) {
    char* lineEnd = nullptr;
    do {
        file.bufferStart += static_cast<std::int64_t>(file.end - kLineCapacity);
        file.end = file.begin = kLineCapacity;
        if (!refill(file, 0)) break;
        lineEnd = static_cast<char*>(
            std::memchr(file.buffer + kLineCapacity, '\n', file.end - kLineCapacity));
    } while (lineEnd == nullptr);
    if (file.failed) return endOrFailure(file);
    file.begin =
        lineEnd == nullptr ? file.end : static_cast<std::size_t>(lineEnd - file.buffer) + 1;
    line = {file.buffer, kLineCapacity};
    return ReadResult::ok;
}

// The line at `begin` has no end among the bytes at hand.
ReadResult readSplitLine(OpenFile& file, std::string_view& line) {
    while (file.end - file.begin < kBufferSize && refill(file, file.begin)) {
        const char* const start = file.buffer + file.begin;
        const auto* const lineEnd =
            static_cast<const char*>(std::memchr(start, '\n', file.end - file.begin));
        if (lineEnd != nullptr) {
            line = lineBetween(start, lineEnd);
            file.begin = static_cast<std::size_t>(lineEnd - file.buffer) + 1;
            return ReadResult::ok;
        }
    }
    if (file.end - file.begin == kBufferSize) return readLongLine(file, line);
    if (file.failed) file.begin = file.end;  // the next end test is true and no loop spins
    if (file.begin == file.end) return endOrFailure(file);
    line = lineBetween(file.buffer + file.begin, file.buffer + file.end);
    file.begin = file.end;
    return ReadResult::ok;
}

}  // namespace

ReadResult readLine(int unit, std::string_view& line) {
    OpenFile& file = readableFile(unit);
    const char* const start = file.buffer + file.begin;
    const auto* const lineEnd =
        static_cast<const char*>(std::memchr(start, '\n', file.end - file.begin));
    if (lineEnd != nullptr) {
        takeLine(file, static_cast<std::size_t>(lineEnd - file.buffer) + 1);
        line = lineBetween(start, lineEnd);
        return ReadResult::ok;
    }
    file.lineStart = file.bufferStart + static_cast<std::int64_t>(file.begin);
    const ReadResult result = readSplitLine(file, line);
    if (result == ReadResult::ok) ++file.lineNumber;
    return result;
}

std::int64_t lineNumber(int unit) {
    const Unit* const found = findUnit(unit);
    return found != nullptr && found->file ? found->file->lineNumber : 0;
}

// A failure met in the look ahead is left for the read that follows, so that its caller can say
// what could not be read.
bool atEndBehindBuffer(OpenFile& file) {
    return !hasBytes(file) && (!file.failed || file.failureGiven);
}

void rewindUnit(int unit) {
    OpenFile& file = readableFile(unit);
    moveTo(file, 0);
    file.lineStart = file.lineNumber = 0;
}

void backspaceUnit(int unit) {
    OpenFile& file = readableFile(unit);
    const std::int64_t position = file.bufferStart + static_cast<std::int64_t>(file.begin);
    if (position > file.lineStart) --file.lineNumber;
    moveTo(file, file.lineStart);
}

ReadResult readSplitBytes(OpenFile& file, void* out, std::size_t size) {
    auto* target = static_cast<char*>(out);
    while (size > 0) {
        if (!hasBytes(file)) return endOrFailure(file);
        const std::size_t n = std::min(size, file.end - file.begin);
        std::memcpy(target, file.buffer + file.begin, n);
        file.begin += n;
        target += n;
        size -= n;
    }
    return ReadResult::ok;
}

ReadResult skipBehindBuffer(OpenFile& file, std::int64_t count) {
    const std::int64_t position = file.bufferStart + static_cast<std::int64_t>(file.begin);
    const std::int64_t size = platform::fileSize(file.handle);
    const bool cutOff = count > size - position;
    moveTo(file, cutOff ? size : position + count);
    if (file.failed) return endOrFailure(file);
    return cutOff ? ReadResult::end : ReadResult::ok;
}

std::string_view readRefilled(OpenFile& file, std::size_t most) {
    if (!hasBytes(file)) return {};  // the read that follows gives the reason
    const std::size_t n = std::min(most, file.end - file.begin);
    const std::string_view bytes{file.buffer + file.begin, n};
    file.begin += n;
    return bytes;
}

namespace {

// The next real of a list that goes on from line to line.
Item takeAcrossLines(int unit, FreeFormat& list, double& target, std::size_t capacity) {
    Item item;
    while ((item = takeReal(list, target)) == Item::end) {
        std::string_view line;
        const ReadResult result = readLine(unit, line);
        if (result != ReadResult::ok) return result == ReadResult::end ? Item::end : Item::bad;
        list.continueWith(line.substr(0, capacity));
    }
    return item;
}

}  // namespace

Item readAnyPair(int unit, double& x, double& y, std::size_t capacity) {
    FreeFormat list{{}};
    const Item first = takeAcrossLines(unit, list, x, capacity);
    return taken(first) ? takeAcrossLines(unit, list, y, capacity) : first;
}

Item readPair(int unit, double& x, double& y, std::size_t capacity) {
    PlainLine plain(unit, capacity);
    double first;
    double second;
    if (plain.number(first) && plain.number(second) && plain.end()) {
        x = first;
        y = second;
        return Item::value;
    }
    return readAnyPair(unit, x, y, capacity);
}

}  // namespace vantelgis
