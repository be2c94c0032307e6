#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "text/number_field.h"

// What the recipes of the benchmarks' data are made with.
namespace bench {

// SplitMix64: the library's distributions differ from one library to the next.
class Random {
  public:
    // 0 to limit - 1
    std::int64_t below(std::int64_t limit) {
        state_ += 0x9e3779b97f4a7c15U;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9U;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebU;
        return static_cast<std::int64_t>((z ^ (z >> 31)) % static_cast<std::uint64_t>(limit));
    }

  private:
    std::uint64_t state_ = 20240501;
};

// A file that is written front to back.
class Output {
  public:
    explicit Output(const std::string& name) : file_(std::fopen(name.c_str(), "wb")) {
        if (file_ == nullptr) fail(name);
    }
    ~Output() {
        if (std::fclose(file_) != 0) fail("the last bytes");
    }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    Output& operator<<(std::string_view text) {
        if (std::fwrite(text.data(), 1, text.size(), file_) != text.size()) fail("a file");
        return *this;
    }
    Output& operator<<(std::int64_t value) {
        return *this << std::string_view(vantelgis::IntegerText(value));
    }

  private:
    [[noreturn]] static void fail(const std::string& name) {
        std::fprintf(stderr, "Can't write %s\n", name.c_str());
        std::exit(1);
    }

    std::FILE* file_;
};

// Coordinates are counted in millionths of a metre.
inline constexpr std::int64_t kMetre = 1'000'000;

struct Place {
    std::int64_t x, y;
};

inline Place somewhere(Random& random) {
    return {(300'000 + random.below(60'000)) * kMetre + random.below(kMetre),
            (6'200'000 + random.below(60'000)) * kMetre + random.below(kMetre)};
}

inline void step(Random& random, Place& place) {
    place.x += random.below(50 * kMetre) - 25 * kMetre;
    place.y += random.below(50 * kMetre) - 25 * kMetre;
}

// About 100 MB of 3d strings of 50 to 500 vertices, and as much of super strings with levels and
// null words, and one string as long as a string may be; each an archive site.12da. Give the
// vertices.
std::int64_t archiveOf3dStrings(const std::string& folder);
std::int64_t archiveOfSuperStrings(const std::string& folder);
std::int64_t archiveOfLongestString(const std::string& folder);

// lines.shp with its .shx and .dbf: 100,000 polylines of 20 to 60 nodes, two attributes. Gives the
// nodes.
std::int64_t shapefileLines(const std::string& folder);

}  // namespace bench
