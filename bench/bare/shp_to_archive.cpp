#include "bare/archive_text.h"
#include "bare/loops.h"
#include "bare/shapefile.h"

namespace bench {

namespace {

constexpr std::size_t kRecordHead = 52;  // numbers, shape type, box and the two counts
constexpr std::size_t kCounts = 44;
constexpr std::size_t kPoint = 16;
constexpr std::size_t kFirstField = 8;  // its width; the rows begin with a mark

}  // namespace

void shpToArchive(const std::string& in, const std::string& out) {
    Input shp(in + ".shp"), dbf(in + ".dbf");
    Output archive(out);
    shp.take(kShapeHead);
    const std::size_t rowSize = rowSizeBehindHead(dbf);
    while (const char* head = shp.take(kRecordHead)) {
        const auto parts = littleAt<std::uint32_t>(head + kCounts);
        const auto points = littleAt<std::uint32_t>(head + kCounts + 4);
        shp.take(std::size_t{4} * parts);
        const char* row = dbf.take(rowSize);
        if (row == nullptr) return;
        std::string_view name{row + 1, kFirstField};
        name.remove_prefix(name.find_first_not_of(' '));
        begin2dString(archive, name);
        for (std::uint32_t i = 0; i < points; ++i) {
            const char* point = shp.take(kPoint);
            if (point == nullptr) return;
            putVertex(archive, littleAt<double>(point), littleAt<double>(point + 8));
        }
        endString(archive);
    }
}

}  // namespace bench
