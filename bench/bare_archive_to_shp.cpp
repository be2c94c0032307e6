// The least that any converter of an archive's 3d strings must do, to measure against: reads the
// archive in blocks, converts the numbers of its vertex lines and writes the records of two
// shapefile sets, a polyline for each data block and a point for each vertex. No objects, no names,
// no messages, no headers, and no checks.

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>
#include <vector>

#include "line_blocks.h"
#include "run/byte_order.h"
#include "text/characters.h"

namespace {

// The records of a .shp with its .shx and .dbf.
class Set {
  public:
    explicit Set(const std::string& stem)
        : shpFile_(bench::openUnbuffered((stem + ".shp").c_str(), "wb")),
          shxFile_(bench::openUnbuffered((stem + ".shx").c_str(), "wb")),
          dbfFile_(bench::openUnbuffered((stem + ".dbf").c_str(), "wb")) {}

    void beginRecord(std::int32_t words, std::int32_t type) {
        shp_.begin();
        big(shp_, ++number_);
        big(shp_, words);
        little(type);
        shx_.begin();
        big(shx_, offset_);
        big(shx_, words);
        offset_ += words + 4;
    }
    template <typename Number>
    void little(Number value) {
        const auto bytes = vantelgis::bytesOf(value, std::endian::little);
        shp_.text({bytes.data(), bytes.size()});
    }
    void point(double x, double y) {
        little(x);
        little(y);
    }
    void row(double z) {
        dbf_.begin();
        dbf_.text(" ");
        dbf_.number(z, 16, 3);
        dbf_.text("           0.000           0.000                    3d                  ");
    }
    void beginPoints() { shp_.begin(); }

  private:
    static void big(bench::LineWriter& writer, std::int32_t value) {
        const auto bytes = vantelgis::bytesOf(value, std::endian::big);
        writer.text({bytes.data(), bytes.size()});
    }

    bench::File shpFile_, shxFile_, dbfFile_;
    bench::LineWriter shp_{shpFile_.get()}, shx_{shxFile_.get()}, dbf_{dbfFile_.get()};
    std::int32_t number_ = 0;
    std::int32_t offset_ = 50;
};

class Converter {
  public:
    void line(std::string_view line) {
        std::size_t start = 0;
        while (start < line.size() && line[start] == ' ') ++start;
        if (start == line.size()) return;
        const char first = line[start];
        if (vantelgis::isDigit(first) || first == '-') {
            vertex(line.data() + start, line.data() + line.size());
        } else if (first == '}' && !x_.empty()) {
            polyline();
        }
    }

  private:
    void vertex(const char* from, const char* end) {
        double x = 0;
        double y = 0;
        float z = 0;
        from = std::from_chars(from, end, x).ptr;
        from = std::from_chars(std::min(from + 1, end), end, y).ptr;
        std::from_chars(std::min(from + 1, end), end, z);
        x_.push_back(x);
        y_.push_back(y);
        z_.push_back(z);
    }
    void polyline() {
        const auto n = static_cast<std::int32_t>(x_.size());
        lines_.beginRecord(8 * n + 24, 3);
        const auto [xMin, xMax] = std::minmax_element(x_.begin(), x_.end());
        const auto [yMin, yMax] = std::minmax_element(y_.begin(), y_.end());
        lines_.point(*xMin, *yMin);
        lines_.point(*xMax, *yMax);
        for (const std::int32_t count : {1, n, 0}) lines_.little(count);
        for (std::size_t i = 0; i < x_.size(); ++i) {
            lines_.beginPoints();
            lines_.point(x_[i], y_[i]);
        }
        lines_.row(-99999);
        for (std::size_t i = 0; i < x_.size(); ++i) {
            points_.beginRecord(10, 1);
            points_.point(x_[i], y_[i]);
            points_.row(static_cast<double>(z_[i]));
        }
        x_.clear();
        y_.clear();
        z_.clear();
    }

    Set lines_{"bare_L"};
    Set points_{"bare_P"};
    std::vector<double> x_, y_;
    std::vector<float> z_;
};

}  // namespace

// Argument: the archive. Writes bare_L and bare_P.
int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const bench::File in = bench::openUnbuffered(argv[1], "rb");
    if (!in) return 1;
    static Converter converter;
    bench::convertLines(in.get(), converter);
    return 0;
}
