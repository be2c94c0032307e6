#include "drop/layer_files.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "run/platform.h"
#include "text/characters.h"
#include "text/paths.h"
#include "text/strings.h"

namespace vantelgis::drop {

namespace {

constexpr std::size_t kBlock = 65536;
constexpr std::size_t kMostLine = 1000;  // more than the converter reads of a line doesn't count

// The lines of a text file, without their ends.
class Lines {
  public:
    explicit Lines(const std::string& name)
        : file_(platform::openFile(name, platform::Access::read, platform::Sharing::full)) {}
    ~Lines() {
        if (file_ != platform::kNoFile) static_cast<void>(platform::closeFile(file_));
    }
    Lines(const Lines&) = delete;
    Lines& operator=(const Lines&) = delete;

    [[nodiscard]] bool isOpen() const { return file_ != platform::kNoFile; }

    bool next(std::string& line) {
        line.clear();
        for (int c = take(); c != kEnd; c = take()) {
            if (c == '\n') return true;
            if (c != '\r' && line.size() < kMostLine) line.push_back(static_cast<char>(c));
        }
        return !line.empty();
    }

    // The next byte, 0 to 255.
    int take() {
        if (next_ == count_) {
            const std::int64_t read =
                isOpen() ? platform::readFile(file_, block_.data(), kBlock) : 0;
            next_ = 0;
            count_ = static_cast<std::size_t>(std::max<std::int64_t>(read, 0));
            if (count_ == 0) return kEnd;
        }
        return static_cast<unsigned char>(block_[next_++]);
    }

    static constexpr int kEnd = -1;

  private:
    platform::FileHandle file_;
    std::array<char, kBlock> block_{};
    std::size_t next_ = 0;
    std::size_t count_ = 0;
};

bool beginsWithWord(std::string_view line, std::string_view word) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    return sameIgnoringCase(line.substr(0, line.find_first_of(" \t")), word);
}

Geometry geometryOfMif(const std::string& layer) {
    Lines lines(layer);
    std::string line;
    bool inData = false;  // the columns of the head may have any names
    while (lines.next(line)) {
        const auto isWord = [&](std::string_view word) { return beginsWithWord(line, word); };
        if (inData && (isWord("Point") || isWord("MultiPoint"))) return Geometry::points;
        if (inData && (isWord("Line") || isWord("Pline"))) return Geometry::lines;
        inData = inData || isWord("Data");
    }
    return Geometry::unknown;
}

Geometry geometryOfShp(const std::string& layer) {
    constexpr int kTypeOffset = 32;
    Lines bytes(layer);
    for (int i = 0; i < kTypeOffset; ++i) bytes.take();
    switch (bytes.take()) {
        case 1:
        case 8:
        case 11:
        case 18:
        case 21:
        case 28: return Geometry::points;
        case 3:
        case 13:
        case 23: return Geometry::lines;
        default: return Geometry::unknown;
    }
}

}  // namespace

Geometry geometryOf(const std::string& layer) {
    return hasExtension(layer, ".mif") ? geometryOfMif(layer) : geometryOfShp(layer);
}

bool hasUsableProjection(const std::string& folder) {
    for (const std::string_view name : {"Header.prj", "Projection.prj"}) {
        Lines lines(folder + std::string(name));
        if (!lines.isOpen()) continue;
        std::string line;
        while (lines.next(line)) {
            if (containsIgnoringCase(line, "PROJCS"))
                return std::count(line.begin(), line.end(), '[') ==
                       std::count(line.begin(), line.end(), ']');
        }
        return false;
    }
    return false;
}

}  // namespace vantelgis::drop
