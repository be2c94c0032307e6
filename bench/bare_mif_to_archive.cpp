// The least that any converter of polylines must do, to measure against: reads a .mif in blocks,
// converts the coordinates behind each Pline and writes them as an archive's vertex lines. No
// attributes, no names, no messages, and no checks beyond those that keep it from running astray.

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>

#include "text/number_field.h"

namespace {

constexpr std::size_t kBlock = 256 * 1024;
constexpr std::size_t kLongestVertexLine = 64;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

File openUnbuffered(const char* name, const char* mode) {
    File file(std::fopen(name, mode));
    if (file) std::setvbuf(file.get(), nullptr, _IONBF, 0);
    return file;
}

class Writer {
  public:
    explicit Writer(std::FILE* file) : file_(file) {}

    void vertex(double x, double y) {
        if (used_ + kLongestVertexLine > kBlock) flush();
        char* out = block_ + used_;
        std::memset(out, ' ', 4);
        out = vantelgis::fixedField(out + 4, x, 16, 5);
        out = vantelgis::fixedField(out, y, 16, 5);
        *out++ = '\r';
        *out++ = '\n';
        used_ = static_cast<std::size_t>(out - block_);
    }
    void flush() {
        std::fwrite(block_, 1, used_, file_);
        used_ = 0;
    }

  private:
    std::FILE* file_;
    std::size_t used_ = 0;
    char block_[kBlock];
};

class Converter {
  public:
    explicit Converter(Writer& writer) : writer_(writer) {}

    void line(std::string_view line) {
        const char* end = line.data() + line.size();
        if (left_ > 0) {
            double x = 0;
            double y = 0;
            const char* next = std::from_chars(line.data(), end, x).ptr;
            std::from_chars(std::min(next + 1, end), end, y);
            writer_.vertex(x, y);
            --left_;
        } else if (line.starts_with("Pline ")) {
            std::from_chars(line.data() + 6, end, left_);
        }
    }

  private:
    Writer& writer_;
    int left_ = 0;  // vertices still to come
};

// Hands every line of the file to the converter; what is left of a line at a block's end goes to
// the front of the next block.
void convert(std::FILE* in, Converter& converter) {
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

}  // namespace

// Arguments: the .mif and the file to write.
int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const File in = openUnbuffered(argv[1], "rb");
    const File out = openUnbuffered(argv[2], "wb");
    if (!in || !out) return 1;
    static Writer writer(out.get());
    Converter converter(writer);
    convert(in.get(), converter);
    writer.flush();
    return 0;
}
