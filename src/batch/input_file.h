#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "run/platform.h"

/// Reading files in bounded pieces, without the converter's units and their stops.
namespace vantelgis::batch {

class InputFile {
  public:
    explicit InputFile(const std::string& path);
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    [[nodiscard]] bool isOpen() const { return file_ != vantelgis::platform::kNoFile; }
    [[nodiscard]] std::int64_t size() const { return size_; }
    /// A read was refused.
    [[nodiscard]] bool failed() const { return failed_; }

    /// The bytes from a place on, at most `count` (up to 1 MB) of them; they stay until the next
    /// read. A call behind the last one costs one read of the system.
    std::string_view bytesAt(std::int64_t place, std::size_t count);

    /// The next line from the place set last, without its line end; what is longer than 1 MB comes
    /// in pieces. False at the end of the file.
    bool nextLine(std::string_view& line);
    /// Lines come from this place on.
    void startLinesAt(std::int64_t place);
    /// Where the next line begins.
    [[nodiscard]] std::int64_t linePlace() const {
        return start_ + static_cast<std::int64_t>(taken_);
    }

  private:
    bool readOn();

    vantelgis::platform::FileHandle file_;
    std::int64_t size_ = 0;
    std::int64_t start_ = 0;  // place in the file of the buffer's first byte
    std::size_t taken_ = 0;   // bytes of the buffer that were given as lines
    bool failed_ = false;
    std::vector<char> buffer_;
    std::size_t filled_ = 0;
};

/// The first bytes of a file, at most `most`; nothing when it can't be read.
std::string readStart(const std::string& path, std::size_t most);

}  // namespace vantelgis::batch
