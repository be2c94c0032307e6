// The least that any converter of polylines must do, to measure against: reads a .mif in blocks,
// converts the coordinates behind each Pline and writes them as an archive's vertex lines. No
// attributes, no names, no messages, and no checks beyond those that keep it from running astray.

#include <algorithm>
#include <charconv>

#include "line_blocks.h"

namespace {

class Converter {
  public:
    explicit Converter(std::FILE* archive) : archive_(archive) {}

    void line(std::string_view line) {
        const char* end = line.data() + line.size();
        if (left_ > 0) {
            double x = 0;
            double y = 0;
            const char* next = std::from_chars(line.data(), end, x).ptr;
            std::from_chars(std::min(next + 1, end), end, y);
            archive_.begin();
            archive_.text("    ");
            archive_.number(x, 16, 5);
            archive_.number(y, 16, 5);
            archive_.end();
            --left_;
        } else if (line.starts_with("Pline ")) {
            std::from_chars(line.data() + 6, end, left_);
        }
    }

  private:
    bench::LineWriter archive_;
    int left_ = 0;  // vertices still to come
};

}  // namespace

// Arguments: the .mif and the file to write.
int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const bench::File in = bench::openUnbuffered(argv[1], "rb");
    const bench::File out = bench::openUnbuffered(argv[2], "wb");
    if (!in || !out) return 1;
    Converter converter(out.get());
    bench::convertLines(in.get(), converter);
    return 0;
}
