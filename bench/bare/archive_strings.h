#pragma once

#include <string_view>

#include "bare/files.h"
#include "bare/numbers.h"

namespace bench {

inline constexpr float kNull = -99999.0F;

// The data blocks of an archive's strings, one after the other.
class DataBlocks {
  public:
    explicit DataBlocks(const std::string& name) : in_(name) {}

    // Goes on to the next block; false when there is none.
    bool next() {
        while (const char* line = in_.line()) {
            const char* const word = behindBlanks(line);
            in_.leave(word);
            if (*word == 's' && begins(word, "string ")) {
                typeLength_ = 0;
                for (const char* p = word + 7; *p != '{'; ++p) type_[typeLength_++] = *p;
                if (typeLength_ > 0) --typeLength_;
                blockLevel_ = kNull;
            } else if (*word == 'z' && word[1] == ' ') {
                readReal(word + 2, blockLevel_);
            } else if (*word == 'd' && begins(word, "data") && beginsBlock(word)) {
                level = blockLevel_;
                blockLevel_ = kNull;
                flat = word[5] == '2';
                return true;
            }
        }
        return false;
    }

    // The next vertex of the block; false behind the last one.
    template <typename Elevation>
    bool vertex(double& x, double& y, Elevation& z) {
        const char* p = in_.line();
        if (p == nullptr) return false;
        p = behindBlanks(p);
        if (*p == '}') {
            in_.leave(p);
            return false;
        }
        p = readReal(p, x);
        p = readReal(p + 1, y);
        if (flat) {
            z = level;
        } else if (p[1] == 'n') {
            z = kNull;
            p += 5;
        } else {
            p = readReal(p + 1, z);
        }
        in_.leaveAtEnd(p);
        return true;
    }

    // The words behind "string", and whether the block's vertices have the level for an elevation.
    [[nodiscard]] std::string_view type() const { return {type_, typeLength_}; }
    float level = kNull;
    bool flat = false;

  private:
    static const char* behindBlanks(const char* p) {
        while (*p == ' ') ++p;
        return p;
    }
    static bool begins(const char* p, std::string_view word) {
        return std::memcmp(p, word.data(), word.size()) == 0;
    }
    static bool beginsBlock(const char* p) {
        while (*p != '{' && *p != '\n') ++p;
        return *p == '{';
    }

    Input in_;
    char type_[256];
    std::size_t typeLength_ = 0;
    float blockLevel_ = kNull;
};

}  // namespace bench
