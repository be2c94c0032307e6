#include <algorithm>
#include <cstring>
#include <limits>
#include <numeric>
#include <string_view>

#include "gis/dbf/reader.h"
#include "gis/dbf/table_layout.h"
#include "gis/report.h"
#include "run/console.h"
#include "run/unit_reading.h"

namespace vantelgis {

namespace {

constexpr char kDeleted = '*';
constexpr char kActive = ' ';
constexpr char kActiveToo = '\0';  // some writers leave the byte alone
constexpr std::size_t kLongestRecord = std::size_t{kMaxDbfFields} * 255;

void requireBytes(ReadResult result) {
    gisRequireRead(result, {"ERROR 0408 - End of .dbf file encountered whilst reading record.",
                            "ERROR 0407 - Reading .dbf record."});
}

char readMark(int unit) {
    char mark;
    requireBytes(readBytes(unit, &mark, 1));
    return mark;
}

// The fields' bytes where they stand in the unit's buffer, or gathered in `gathered` when they
// reach over its end.
const char* readFields(const dbfL_& dbf, char* gathered) {
    const auto size = static_cast<std::size_t>(dbf.recordLength);
    const std::string_view atHand = readSome(dbf.dbfUnit, size);
    if (atHand.size() == size) return atHand.data();
    std::copy(atHand.begin(), atHand.end(), gathered);
    requireBytes(readBytes(dbf.dbfUnit, gathered + atHand.size(), size - atHand.size()));
    return gathered;
}

// A record's line as it grows. Blanks at its end never count, not even where a field was cut.
class RecordLine {
  public:
    explicit RecordLine(TextRef target) : target_(target) { target_.clear(); }

    void add(char c) {
        if (length_ < target_.capacity) target_.data[length_++] = c;
    }
    void add(std::string_view text) {
        const std::size_t n = std::min(text.size(), target_.capacity - length_);
        if (n > 0) std::memcpy(target_.data + length_, text.data(), n);
        length_ += n;
    }
    void endPiece() {
        length_ = withoutTrailingBlanks({target_.data, length_}).size();
        *target_.length = length_;
    }

  private:
    TextRef target_;
    std::size_t length_ = 0;
};

void addField(RecordLine& line, std::string_view bytes, char type) {
    const std::string_view value = withoutTrailingBlanks(bytes);
    if (type == 'C' || type == 'c') {
        line.add('"');
        line.add(value);
        line.add('"');
    } else if (bytes.front() == '*') {
        line.add('0');  // a number that was too large for its field
    } else {
        line.add(value);
    }
    line.endPiece();
}

bool hasQuotes(std::string_view text) {
    return text.find('"') != std::string_view::npos || text.find('\'') != std::string_view::npos;
}

// Each field has an item at the least and none goes on behind its field's comma, but for one in
// quotes where the field itself has some.
int fieldsWithItems(const dbfL_& dbf, const char* bytes, int nItems) {
    if (nItems >= dbf.nFields) return dbf.nFields;
    const std::int32_t* const widths = dbf.fieldWidth;
    const auto size = static_cast<std::size_t>(std::accumulate(widths, widths + nItems, 0));
    return hasQuotes({bytes, size}) ? dbf.nFields : nItems;
}

void readActiveRecord(dbfL_& dbf, int nItems) {
    if (dbf.recordNo < std::numeric_limits<std::int32_t>::max()) ++dbf.recordNo;
    char gathered[kLongestRecord];
    const char* bytes = readFields(dbf, gathered);
    const int nFields = fieldsWithItems(dbf, bytes, nItems);
    RecordLine line(dbf.row);
    for (int i = 0; i < nFields; ++i) {
        const auto width = static_cast<std::size_t>(dbf.fieldWidth[i]);
        addField(line, {bytes, width}, dbf.fieldType[i]);
        if (i == dbf.nFields - 1) break;
        line.add(',');
        line.endPiece();
        bytes += width;
    }
}

void meetEndMark(const dbfL_& dbf) {
    if (dbf.recordNo == dbf.nRecords) return;
    consoleLine("WARNING 0405 - Insufficient number of records found in .dbf file.");
    consoleLine("               Found ", dbf.recordNo, ", expecting ", dbf.nRecords, ".");
}

[[noreturn]] void stopAboutMark(char mark) {
    stopWith("", "ERROR 0406 - Unrecognised record identifier found in .dbf file.",
             MessageLine("Character = ", std::string_view(&mark, 1), " [",
                         int{static_cast<unsigned char>(mark)}, "]"),
             "Data line thus far =");
}

}  // namespace

std::string_view dbfReadRecord(dbfL_& dbf, int nItems) {
    dbf.row.clear();
    char mark = readMark(dbf.dbfUnit);
    while (mark == kDeleted) {
        requireBytes(skipBytes(dbf.dbfUnit, dbf.recordLength));
        mark = readMark(dbf.dbfUnit);
    }
    switch (mark) {
        case kActive:
        case kActiveToo: readActiveRecord(dbf, nItems); break;
        case kEndMark: meetEndMark(dbf); break;
        default: stopAboutMark(mark);
    }
    return dbf.row;
}

}  // namespace vantelgis
