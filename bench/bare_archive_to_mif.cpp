// The least that any converter of an archive's strings must do, to measure against: reads the
// archive in blocks, converts the numbers of its vertex lines, and writes as many number fields as
// a MapInfo layer of them has: each coordinate as a node and as a point, and the row of the point.
// No objects, no names, no messages, and no checks beyond those that keep it from running astray.

#include <algorithm>
#include <charconv>

#include "line_blocks.h"
#include "text/characters.h"

namespace {

class Converter {
  public:
    Converter(std::FILE* mif, std::FILE* mid) : mif_(mif), mid_(mid) {}

    void line(std::string_view line) {
        std::size_t start = 0;
        while (start < line.size() && line[start] == ' ') ++start;
        if (start == line.size()) return;
        const char first = line[start];
        const char* const from = line.data() + start;
        const char* const end = line.data() + line.size();
        if (vantelgis::isDigit(first) || first == '-') {
            vertex(from, end);
        } else if (first == 'z') {
            float level = 0;
            std::from_chars(std::min(from + 2, end), end, level);
            level_ = level;
        }
    }

  private:
    void vertex(const char* from, const char* end) {
        double x = 0;
        double y = 0;
        from = std::from_chars(from, end, x).ptr;
        from = std::from_chars(std::min(from + 1, end), end, y).ptr;
        float z = level_;
        bool elevated = true;
        if (end - from > 2) elevated = std::from_chars(from + 1, end, z).ec == std::errc{};
        mif_.begin();
        coordinates(x, y);
        if (!elevated) return;
        mif_.begin();
        mif_.text("Point ");
        coordinates(x, y);
        mid_.begin();
        mid_.number(static_cast<double>(z), 16, 3);
        mid_.text(",");
        mid_.number(0, 8, 3);
        mid_.text(",");
        mid_.number(0, 8, 3);
        mid_.text(R"(,"","3d")");
        mid_.end();
    }
    void coordinates(double x, double y) {
        mif_.number(x, 16, 6);
        mif_.number(y, 16, 6);
        mif_.end();
    }

    bench::LineWriter mif_;
    bench::LineWriter mid_;
    float level_ = 0;
};

}  // namespace

// Arguments: the archive and the two files to write.
int main(int argc, char** argv) {
    if (argc != 4) return 2;
    const bench::File in = bench::openUnbuffered(argv[1], "rb");
    const bench::File mif = bench::openUnbuffered(argv[2], "wb");
    const bench::File mid = bench::openUnbuffered(argv[3], "wb");
    if (!in || !mif || !mid) return 1;
    Converter converter(mif.get(), mid.get());
    bench::convertLines(in.get(), converter);
    return 0;
}
