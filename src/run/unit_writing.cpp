#include "run/unit_writing.h"

#include <algorithm>

#include "run/stop.h"

namespace vantelgis {

namespace {

// Goes on where reading has come to. A file that was opened for input takes nothing.
void turnToWriting(OpenFile& file) {
    file.bufferStart += static_cast<std::int64_t>(file.begin);
    file.begin = file.end = 0;
    file.failed = file.mode->input || !platform::seekFile(file.handle, file.bufferStart);
    file.holdsInput = false;
}

}  // namespace

bool flushFile(OpenFile& file) {
    if (file.holdsInput) return true;
    if (file.handle == platform::kNoFile) file.failed = true;
    if (file.end > 0 && !file.failed)
        file.failed = !platform::writeFile(file.handle, file.buffer, file.end);
    file.bufferStart += static_cast<std::int64_t>(file.end);
    file.end = 0;
    return !file.failed;
}

void clearBuffer(OpenFile& file) {
    if (file.holdsInput) turnToWriting(file);
    if (!flushFile(file) && !file.ownerReports) stopWritingFile(file.name);
}

void put(int unit, std::string_view text) {
    while (!text.empty()) {
        const std::size_t n = std::min(text.size(), kLargestReserve);
        OpenFile& file = makeRoom(unit, n);
        std::memcpy(file.buffer + file.end, text.data(), n);
        file.end += n;
        text.remove_prefix(n);
    }
}

void endLine(int unit) {
    put(unit, "\r\n");
}

void putLine(int unit, std::string_view text) {
    text = withoutTrailingBlanks(text);
    OutputLine line{unit, std::min(text.size() + 2, kLargestReserve)};
    line.text(text);
    line.end();
}

void OutputLine::reopen(std::size_t size) {
    handOver();
    open(std::max(size, room_));
}

void OutputLine::longText(std::string_view s) {
    handOver();
    put(unit_, s);
    open(room_);
}

void ownerReportsWriteFailures(int unit) {
    fileOf(unit).ownerReports = true;
}

bool flushUnit(int unit) {
    return flushFile(fileOf(unit));
}

bool patchBytes(int unit, std::int64_t position, std::string_view bytes) {
    if (!flushUnit(unit)) return false;
    OpenFile& file = fileOf(unit);
    file.failed = !platform::seekFile(file.handle, position) ||
                  !platform::writeFile(file.handle, bytes.data(), bytes.size());
    return !file.failed;
}

bool emptyUnit(int unit) {
    if (!flushUnit(unit)) return false;
    OpenFile& file = fileOf(unit);
    file.failed = !platform::emptyFile(file.handle);
    file.bufferStart = 0;
    return !file.failed;
}

}  // namespace vantelgis
