#include <charconv>
#include <string_view>
#include <vector>

#include "bare/fields.h"
#include "bare/files.h"
#include "bare/loops.h"
#include "bare/numbers.h"
#include "bare/shapefile.h"

namespace bench {

namespace {

constexpr std::size_t kSize = 10;     // columns of a symbol's size
constexpr std::size_t kRotation = 6;  // and of its angle

// The coordinates are written as they come, the symbols behind the last of them: their numbers wait
// as text.
class Symbols {
  public:
    explicit Symbols(const std::string& name) : archive_(name) {
        archive_.done(putText(archive_.room(), "  // xy location of symbol\r\n  data_3d {\r\n"));
    }

    void add(double x, double y, float size, float angle) {
        if (used_ + kSlack > numbers_.size()) numbers_.resize(2 * numbers_.size());
        char* number = numbers_.data() + used_;
        putFixed<kSize, 4>(number, static_cast<double>(size));
        putFixed<kRotation, 2>(number + kSize, static_cast<double>(angle));
        used_ += kSize + kRotation;

        char* p = putText(archive_.room(), "    ");
        p = putText(putFixed<20, 4>(p, x), " ");
        p = putText(putFixed<20, 4>(p, y), " ");
        archive_.done(putText(putText(p, {number, kSize}), "\r\n"));
    }

    void finish() {
        archive_.done(putText(archive_.room(), "  }\r\n  symbol_data{\r\n"));
        for (std::size_t i = 0; i < used_; i += kSize + kRotation) {
            char* p = putText(archive_.room(),
                              "    properties {\r\n      style     \"\"ARROW 30 BEARING\"\r\n"
                              "      colour    red\r\n      size    ");
            p = putText(p, {numbers_.data() + i, kSize});
            p = putText(p, "\r\n      rotation ");
            p = putText(p, {numbers_.data() + i + kSize, kRotation});
            archive_.done(putText(p, "\r\n      offset    0\r\n      raise     0\r\n    }\r\n"));
        }
        archive_.done(putText(archive_.room(), "  }\r\n"));
    }

  private:
    static constexpr std::size_t kSlack = 64;
    Output archive_;
    std::vector<char> numbers_ = std::vector<char>(kBlock);
    std::size_t used_ = 0;
};

const char* behindBlanks(const char* p) {
    while (*p == ' ') ++p;
    return p;
}

}  // namespace

void mifResults(const std::string& in, const std::string& out) {
    Input mif(in + ".mif"), mid(in + ".mid");
    Symbols symbols(out);
    while (const char* line = mif.line()) {
        if (std::memcmp(line, "Point ", 6) != 0) {
            mif.leave(line);
            continue;
        }
        const char* row = mid.line();
        if (row == nullptr) break;
        double x;
        double y;
        float size;
        float angle;
        line = readReal(line + 6, x);
        mif.leaveAtEnd(readReal(line + 1, y));
        row = readReal(row, size);
        mid.leave(readReal(row + 1, angle));
        symbols.add(x, y, size, angle);
    }
    symbols.finish();
}

void shpResults(const std::string& in, const std::string& out) {
    constexpr std::size_t kRecord = 28;
    constexpr std::size_t kCoordinates = 12;
    constexpr std::size_t kField = 12;  // the width of either value; the rows begin with a mark
    Input shp(in + ".shp"), dbf(in + ".dbf");
    Symbols symbols(out);
    shp.take(kShapeHead);
    const std::size_t rowSize = rowSizeBehindHead(dbf);
    while (const char* record = shp.take(kRecord)) {
        const char* row = dbf.take(rowSize);
        if (row == nullptr) break;
        float size;
        float angle;
        readReal(behindBlanks(row + 1), size);
        readReal(behindBlanks(row + 1 + kField), angle);
        symbols.add(littleAt<double>(record + kCoordinates),
                    littleAt<double>(record + kCoordinates + 8), size, angle);
    }
    symbols.finish();
}

}  // namespace bench
