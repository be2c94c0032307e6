#include <algorithm>
#include <limits>
#include <string_view>

#include "gis/dbf/record_split.h"
#include "gis/dbf/writer.h"
#include "gis/report.h"
#include "run/opener.h"
#include "run/unit_writing.h"

namespace vantelgis {

namespace {

constexpr char kActive = ' ';
constexpr char kEndMark = 26;

// Shared by all tables: an item that a line leaves out is that of the record before.
RecordItem lastItems[kMaxDbfFields];

[[noreturn]] void stopAboutRecord() {
    gisStop("ERROR 0417 - Writing .dbf record.");
}

[[noreturn]] void stopUnsplit() {
    gisSetMessage(
        MessageLine("Should not be here [dbfdataline] - please contact ", SUPPORT_ADDRESS, "."),
        gisDataLine);
    gisReport(1);
    EXITS();
}

char* placeField(char* out, std::string_view item, std::int32_t width, char type) {
    const auto w = static_cast<std::size_t>(width);
    const std::string_view value = withoutTrailingBlanks(item.substr(0, w));
    const bool left = type == 'C' || type == 'c';
    if (!left) out = std::fill_n(out, w - value.size(), ' ');
    out = std::copy(value.begin(), value.end(), out);
    if (left) out = std::fill_n(out, w - value.size(), ' ');
    return out;
}

}  // namespace

void dbfWriteRecord(dbfL_& dbf) {
    if (dbf.recordNo == std::numeric_limits<std::int32_t>::max()) {
        gisStop("ERROR 0419 - Exceeded dbf limit of 2,147,483,647 records.  Please contact ",
                SUPPORT_ADDRESS, ".");
    }
    ++dbf.recordNo;
    dbfdataline(dbf);
}

void dbfdataline(const dbfL_& dbf) {
    const auto n = static_cast<std::size_t>(dbf.nFields);
    char* out = reserve(dbf.dbfUnit, static_cast<std::size_t>(dbf.recordLength) + 1);
    *out++ = kActive;
    if (!dbfSplitRecord(gisDataLine, {lastItems, n})) stopUnsplit();
    for (std::size_t i = 0; i < n; ++i)
        out = placeField(out, lastItems[i], dbf.fieldWidth[i], dbf.fieldType[i]);
    commit(dbf.dbfUnit, out);
    if (writeFailed(dbf.dbfUnit)) stopAboutRecord();
}

void dbfForgetItems() {
    for (RecordItem& item : lastItems) item.clear();
}

void dbfFinish(dbfL_& dbf) {
    constexpr std::int64_t kCountOffset = 4;
    put(dbf.dbfUnit, {&kEndMark, 1});
    if (!flushUnit(dbf.dbfUnit)) stopAboutRecord();
    const auto count = bytesOf(dbf.recordNo, std::endian::little);
    if (!patchBytes(dbf.dbfUnit, kCountOffset, {count.data(), count.size()}))
        gisStop("ERROR 0413 - Rewriting .dbf file header with final information.");
    CLOSER(dbf.dbfUnit);
}

}  // namespace vantelgis
