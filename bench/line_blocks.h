#pragma once

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>

#include "text/number_field.h"

// Files of the bare loops: read and written in blocks, with nothing in between.
namespace bench {

constexpr std::size_t kBlock = 256 * 1024;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

inline File openUnbuffered(const char* name, const char* mode) {
    File file(std::fopen(name, mode));
    if (file) std::setvbuf(file.get(), nullptr, _IONBF, 0);
    return file;
}

// Composes lines of at most kLongestLine characters.
class LineWriter {
  public:
    explicit LineWriter(std::FILE* file) : file_(file) {}
    ~LineWriter() { flush(); }
    LineWriter(const LineWriter&) = delete;
    LineWriter& operator=(const LineWriter&) = delete;

    void begin() {
        if (used_ + kLongestLine > kBlock) flush();
    }
    void text(std::string_view text) {
        std::memcpy(block_ + used_, text.data(), text.size());
        used_ += text.size();
    }
    void number(double value, int width, int decimals) {
        used_ = static_cast<std::size_t>(
            vantelgis::fixedField(block_ + used_, value, width, decimals) - block_);
    }
    void end() { text("\r\n"); }

  private:
    static constexpr std::size_t kLongestLine = 128;

    void flush() {
        std::fwrite(block_, 1, used_, file_);
        used_ = 0;
    }

    std::FILE* file_;
    std::size_t used_ = 0;
    char block_[kBlock];
};

// Hands every line of the file to converter.line; what is left of a line at a block's end goes to
// the front of the next block.
template <typename Converter>
void convertLines(std::FILE* in, Converter& converter) {
    static char block[kBlock];
    std::size_t kept = 0;
    for (;;) {
        const std::size_t got = std::fread(block + kept, 1, kBlock - kept, in);
        if (got == 0) break;
        const char* from = block;
        const char* end = block + kept + got;
        while (const void* found = std::memchr(from, '\n', static_cast<std::size_t>(end - from))) {
            const char* lineEnd = static_cast<const char*>(found);
            converter.line({from, static_cast<std::size_t>(lineEnd - from)});
            from = lineEnd + 1;
        }
        kept = static_cast<std::size_t>(end - from);
        std::memmove(block, from, kept);
    }
}

}  // namespace bench
