#include <cmath>
#include <string>
#include <vector>

#include "bare/archive_strings.h"
#include "bare/fields.h"
#include "bare/loops.h"

namespace bench {

namespace {

constexpr std::size_t kNodeLine = 34;  // two number fields and the line's end

// The lines of a string's vertices: written below its line, and again as its points.
class NodeLines {
  public:
    void clear() { count_ = 0; }
    void add(double x, double y) {
        if ((count_ + 2) * kNodeLine > lines_.size()) lines_.resize(2 * lines_.size());
        char* p = lines_.data() + count_++ * kNodeLine;
        p = putFixed<16, 6>(p, x);
        p = putFixed<16, 6>(p, y);
        putText(p, "\r\n");
    }
    [[nodiscard]] std::size_t count() const { return count_; }
    [[nodiscard]] const char* at(std::size_t i) const { return lines_.data() + i * kNodeLine; }

  private:
    std::vector<char> lines_ = std::vector<char>(kBlock);
    std::size_t count_ = 0;
};

void putRow(Output& mid, float z, std::string_view rest) {
    char* p = putFixed<16, 3>(mid.room(), static_cast<double>(z));
    mid.done(putText(p, rest));
}

void putObjects(Output& mif, const NodeLines& lines, const std::vector<bool>& elevated) {
    char* p = putText(mif.room(), "Pline ");
    mif.done(putText(putText(p, std::to_string(lines.count())), "\r\n"));
    mif.put(lines.at(0), lines.count() * kNodeLine);
    for (std::size_t i = 0; i < lines.count(); ++i) {
        if (!elevated[i]) continue;
        p = putText(mif.room(), "Point ");
        mif.done(putText(p, {lines.at(i), kNodeLine}));
    }
}

}  // namespace

void archiveToMif(const std::string& in, const std::string& out) {
    DataBlocks blocks(in + ".12da");
    Output mif(out + ".mif"), mid(out + ".mid");
    NodeLines lines;
    std::vector<bool> elevated;
    std::string type = "-";  // that of the rest
    std::string rest;        // of a row
    while (blocks.next()) {
        if (blocks.type() != type) {
            type = blocks.type();
            rest = ",   0.000,   0.000,\"\",\"" + type + "\"\r\n";
        }
        putRow(mid, blocks.flat ? blocks.level : kNull, rest);
        lines.clear();
        elevated.clear();
        double x;
        double y;
        float z;
        while (blocks.vertex(x, y, z)) {
            lines.add(x, y);
            elevated.push_back(std::fabs(z - kNull) > 0.001F);
            if (elevated.back()) putRow(mid, z, rest);
        }
        putObjects(mif, lines, elevated);
    }
}

}  // namespace bench
