#include <cstring>
#include <limits>
#include <string_view>

#include "gis/dbf/record_split.h"
#include "gis/dbf/table_layout.h"
#include "gis/dbf/writer.h"
#include "gis/report.h"
#include "run/unit_writing.h"

namespace vantelgis {

namespace {

constexpr char kBlank = ' ';

// Shared by all tables: an item that a line leaves out is that of the record before.
RecordItems lastItems;

[[noreturn]] void stopAboutRecord() {
    gisStop("ERROR 0417 - Writing .dbf record.");
}

[[noreturn]] void stopUnsplit(std::string_view row) {
    stopWith(
        "", MessageLine("Should not be here [dbfdataline] - please contact ", SUPPORT_ADDRESS, "."),
        row);
}

constexpr bool holdsText(char type) {
    return type == 'C' || type == 'c';
}

// Puts an item into its field, text to the left, numbers to the right. What is too long is cut,
// numbers too.
void placeField(char* field, std::string_view item, std::size_t width, char type) {
    const std::string_view value = withoutTrailingBlanks(item.substr(0, width));
    const bool left = holdsText(type);
    std::memset(field, kBlank, width);
    std::memcpy(left ? field : field + width - value.size(), value.data(), value.size());
}

// Puts the items into the fields of the table's record. Where those of the rest of the row come
// from the very split that was made last, they stand there already.
void composeRecord(dbfL_& dbf) {
    const bool sameRest = dbf.splitOfBytes == lastItems.nSplits;
    const std::size_t nChanged =
        static_cast<std::size_t>(dbf.nFields) - (sameRest ? lastItems.itemsOfRest.size() : 0);
    char* out = dbf.bytes.data() + 1;
    for (std::size_t i = 0; i < nChanged; ++i) {
        const auto width = static_cast<std::size_t>(dbf.fieldWidth[i]);
        placeField(out, lastItems.items[i], width, dbf.fieldType[i]);
        out += width;
    }
    dbf.splitOfBytes = lastItems.nSplits;
}

// Puts the number into the first field of the record that the table got last, if nothing else is
// to change in it and the number fills its field as it stands. False leaves it to composeRecord.
bool changeNumber(const NumberRow& row, dbfL_& dbf) {
    const auto width = static_cast<std::size_t>(dbf.fieldWidth[0]);
    if (dbf.splitOfBytes != lastItems.nSplits || row.numberWidth == 0 || row.numberWidth != width ||
        holdsText(dbf.fieldType[0]) ||
        !dbfTakeNumber(row, static_cast<std::size_t>(dbf.nFields), lastItems))
        return false;
    std::memcpy(dbf.bytes.data() + 1, row.text.data(), width);
    return true;
}

void putRecord(const dbfL_& dbf) {
    OpenFile& file = makeRoom(dbf.dbfUnit, dbf.bytes.size());
    std::memcpy(file.buffer + file.end, dbf.bytes.data(), dbf.bytes.size());
    file.end += dbf.bytes.size();
    if (file.failed) stopAboutRecord();
}

void countRecord(dbfL_& dbf) {
    if (dbf.recordNo == std::numeric_limits<std::int32_t>::max()) {
        gisStop("ERROR 0419 - Exceeded dbf limit of 2,147,483,647 records.  Please contact ",
                SUPPORT_ADDRESS, ".");
    }
    ++dbf.recordNo;
}

}  // namespace

void dbfWriteRecord(const NumberRow& row, dbfL_& dbf) {
    countRecord(dbf);
    if (!changeNumber(row, dbf)) {
        if (!dbfSplitRecord(row.text, static_cast<std::size_t>(dbf.nFields), lastItems))
            stopUnsplit(row.text);
        composeRecord(dbf);
    }
    putRecord(dbf);
}

void dbfForgetItems() {
    for (RecordItem& item : lastItems.items) item.clear();
    lastItems.itemsOfRest = {};
    ++lastItems.nSplits;  // what was made of the split before is out of date
}

void dbfFinish(dbfL_& dbf) {
    // A record that can't be written is told apart from what only the end writes.
    if (!flushUnit(dbf.dbfUnit)) stopAboutRecord();
    put(dbf.dbfUnit, {&kEndMark, 1});
    const auto count = bytesOf(dbf.recordNo, std::endian::little);
    if (!patchBytes(dbf.dbfUnit, kRecordCountOffset, {count.data(), count.size()}))
        gisStop(kFinishFailure);
    gisCloseFile(dbf.dbfUnit, kFinishFailure);
}

}  // namespace vantelgis
