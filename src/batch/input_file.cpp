#include "batch/input_file.h"

#include <algorithm>
#include <cstring>

#include "batch/files.h"

namespace vantelgis::batch {

namespace {

constexpr std::size_t kMostAtOnce = std::size_t{1} << 20;
constexpr std::size_t kBlock = std::size_t{128} << 10;

// Reads until `count` bytes are there or the file ends; -1 at a failure.
std::int64_t readFully(vantelgis::platform::FileHandle file, char* out, std::size_t count) {
    std::size_t length = 0;
    while (length < count) {
        const std::int64_t got = vantelgis::platform::readFile(file, out + length, count - length);
        if (got < 0) return -1;
        if (got == 0) break;
        length += static_cast<std::size_t>(got);
    }
    return static_cast<std::int64_t>(length);
}

}  // namespace

InputFile::InputFile(const std::string& path) : file_(openInput(path)) {
    if (isOpen()) size_ = std::max<std::int64_t>(0, vantelgis::platform::fileSize(file_));
}

InputFile::~InputFile() {
    if (isOpen()) static_cast<void>(vantelgis::platform::closeFile(file_));
}

std::string_view InputFile::bytesAt(std::int64_t place, std::size_t count) {
    const std::int64_t behind = std::max<std::int64_t>(0, size_ - place) + 1;
    count = std::min({count, kMostAtOnce, static_cast<std::size_t>(behind)});
    filled_ = 0;
    taken_ = 0;
    start_ = place;
    if (!isOpen() || !vantelgis::platform::seekFile(file_, place)) return {};
    if (buffer_.size() < count) buffer_.resize(count);
    const std::int64_t got = readFully(file_, buffer_.data(), count);
    failed_ = failed_ || got < 0;
    filled_ = static_cast<std::size_t>(std::max<std::int64_t>(0, got));
    return {buffer_.data(), filled_};
}

void InputFile::startLinesAt(std::int64_t place) {
    bytesAt(place, kBlock);
}

// Brings the rest of the line, or of the file, to the buffer's start and more behind it. False at
// the end of the file.
bool InputFile::readOn() {
    if (filled_ > taken_) std::memmove(buffer_.data(), buffer_.data() + taken_, filled_ - taken_);
    start_ += static_cast<std::int64_t>(taken_);
    filled_ -= taken_;
    taken_ = 0;
    const std::int64_t behind = size_ - start_ - static_cast<std::int64_t>(filled_);
    const auto more = static_cast<std::size_t>(
        std::clamp<std::int64_t>(behind + 1, 1, static_cast<std::int64_t>(kBlock)));
    buffer_.resize(std::max(buffer_.size(), std::min(filled_ + more, kMostAtOnce)));
    if (!isOpen()) return false;
    const std::int64_t got =
        readFully(file_, buffer_.data() + filled_, std::min(kBlock, buffer_.size() - filled_));
    failed_ = failed_ || got < 0;
    if (got <= 0) return false;
    filled_ += static_cast<std::size_t>(got);
    return true;
}

bool InputFile::nextLine(std::string_view& line) {
    std::size_t searched = taken_;
    for (;;) {
        const std::string_view unsearched(buffer_.data() + searched, filled_ - searched);
        const std::size_t found = unsearched.find('\n');
        const bool full = taken_ == 0 && filled_ >= kMostAtOnce;
        if (found == std::string_view::npos && !full) {
            const std::size_t rest = filled_ - taken_;
            if (readOn()) {
                searched = rest;
                continue;
            }
            if (rest == 0) return false;
        }
        const bool ended = found != std::string_view::npos;
        const std::size_t end = ended ? searched + found : filled_;
        line = {buffer_.data() + taken_, end - taken_};
        taken_ = end + (ended ? 1 : 0);
        if (line.ends_with('\r')) line.remove_suffix(1);
        return true;
    }
}

std::string readStart(const std::string& path, std::size_t most) {
    InputFile file(path);
    return std::string(file.bytesAt(0, most));
}

}  // namespace vantelgis::batch
