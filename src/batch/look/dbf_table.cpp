#include "batch/look/dbf_table.h"

#include <algorithm>

#include "batch/input_file.h"
#include "batch/look/look.h"
#include "run/byte_order.h"

namespace vantelgis::batch {

namespace {

constexpr std::size_t kHeaderBytes = 32;  // of the file, and of each field descriptor
constexpr std::size_t kWidthAt = 16;      // in a descriptor
constexpr std::size_t kTypeAt = 11;
constexpr std::size_t kMostFields = 2048;  // a header is below 64 KB
constexpr char kDescriptorsEnd = '\r';
constexpr char kDeleted = '*';
constexpr char kEndOfFile = '\x1A';
constexpr std::int64_t kSampleBytes = std::int64_t{1} << 20;

struct Layout {
    std::int64_t firstRow = 0;  // its place, as the converter finds it: behind the descriptors
    std::int64_t rowBytes = 1;  // with the mark
    std::vector<std::size_t> numberFields;  // offsets of the wanted fields that are no text
};

bool readLayout(std::string_view header, int fields, Layout& layout) {
    std::size_t at = kHeaderBytes;
    for (std::size_t n = 0; n < kMostFields && at < header.size(); ++n) {
        if (header[at] == kDescriptorsEnd) {
            layout.firstRow = static_cast<std::int64_t>(at) + 1;
            return n > 0;
        }
        if (at + kHeaderBytes > header.size()) return false;
        const char type = header[at + kTypeAt];
        if (std::cmp_less(n, fields) && type != 'C' && type != 'c')
            layout.numberFields.push_back(static_cast<std::size_t>(layout.rowBytes));
        layout.rowBytes += static_cast<unsigned char>(header[at + kWidthAt]);
        at += kHeaderBytes;
    }
    return false;
}

// Counts whole rows from the start of `bytes`; false at the mark that ends the table.
bool countRows(std::string_view bytes, const Layout& layout, DbfTable& table) {
    const auto rowBytes = static_cast<std::size_t>(layout.rowBytes);
    for (; bytes.size() >= rowBytes; bytes.remove_prefix(rowBytes)) {
        if (bytes.front() == kEndOfFile) return false;
        if (bytes.front() == kDeleted) {
            ++table.deleted;
            continue;
        }
        ++table.active;
        const bool asterisk =
            std::any_of(layout.numberFields.begin(), layout.numberFields.end(),
                        [bytes](std::size_t field) { return bytes[field] == '*'; });
        table.asterisks += asterisk ? 1 : 0;
    }
    return true;
}

void readRows(InputFile& file, const Layout& layout, std::int64_t from, std::int64_t to,
              DbfTable& table) {
    constexpr std::int64_t kBlock = std::int64_t{512} << 10;
    const std::int64_t step = std::max<std::int64_t>(1, kBlock / layout.rowBytes) * layout.rowBytes;
    for (std::int64_t place = from; place < to; place += step) {
        const std::int64_t count = std::min(step, to - place);
        if (!countRows(file.bytesAt(place, static_cast<std::size_t>(count)), layout, table)) return;
    }
}

}  // namespace

DbfTable readDbfTable(const std::string& path, int fields, bool full) {
    DbfTable table;
    InputFile file(path);
    const std::string header(file.bytesAt(0, kHeaderBytes * (kMostFields + 1)));
    Layout layout;
    if (header.size() < kHeaderBytes || !readLayout(header, fields, layout)) return table;
    table.readable = true;
    table.records = fromLittleEndian<std::uint32_t>(header.data() + 4);
    table.whole = full || file.size() <= kWholeSize;
    if (table.whole) {
        readRows(file, layout, layout.firstRow, file.size(), table);
        return table;
    }
    readRows(file, layout, layout.firstRow, layout.firstRow + kSampleBytes, table);
    const std::int64_t rows = (file.size() - layout.firstRow) / layout.rowBytes;
    const std::int64_t last = std::max<std::int64_t>(1, kSampleBytes / layout.rowBytes);
    readRows(file, layout,
             layout.firstRow + std::max<std::int64_t>(0, rows - last) * layout.rowBytes,
             file.size(), table);
    return table;
}

}  // namespace vantelgis::batch
