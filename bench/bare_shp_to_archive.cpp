// The least that any converter of shapefile polylines must do, to measure against: reads the .shp
// in blocks, decodes the points by the counts of their records and writes them as an archive's
// vertex lines. No attributes, no names, no messages, and no checks.

#include <cstdint>

#include "line_blocks.h"
#include "run/byte_order.h"

namespace {

constexpr std::size_t kHeader = 100;
constexpr std::size_t kHead = 52;  // record head, shape type, box and the two counts
constexpr std::size_t kCounts = 44;
constexpr std::size_t kPoint = 16;

class BlockReader {
  public:
    explicit BlockReader(std::FILE* file) : file_(file) {}

    // The next `size` bytes together, null when there are fewer.
    const char* take(std::size_t size) {
        if (end_ - at_ < size) refill();
        if (end_ - at_ < size) return nullptr;
        at_ += size;
        return block_ + at_ - size;
    }

  private:
    void refill() {
        std::memmove(block_, block_ + at_, end_ - at_);
        end_ -= at_;
        at_ = 0;
        end_ += std::fread(block_ + end_, 1, bench::kBlock - end_, file_);
    }

    std::FILE* file_;
    std::size_t at_ = 0;
    std::size_t end_ = 0;
    char block_[bench::kBlock];
};

void convert(BlockReader& shp, bench::LineWriter& archive) {
    using vantelgis::fromLittleEndian;
    shp.take(kHeader);
    while (const char* head = shp.take(kHead)) {
        const auto parts = fromLittleEndian<std::int32_t>(head + kCounts);
        const auto points = fromLittleEndian<std::int32_t>(head + kCounts + 4);
        shp.take(static_cast<std::size_t>(parts) * 4);
        for (std::int32_t i = 0; i < points; ++i) {
            const char* point = shp.take(kPoint);
            if (point == nullptr) return;
            archive.begin();
            archive.text("    ");
            archive.number(fromLittleEndian<double>(point), 16, 5);
            archive.number(fromLittleEndian<double>(point + 8), 16, 5);
            archive.end();
        }
    }
}

}  // namespace

// Arguments: the .shp and the file to write.
int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const bench::File in = bench::openUnbuffered(argv[1], "rb");
    const bench::File out = bench::openUnbuffered(argv[2], "wb");
    if (!in || !out) return 1;
    static BlockReader shp(in.get());
    bench::LineWriter archive(out.get());
    convert(shp, archive);
    return 0;
}
