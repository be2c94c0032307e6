#include <array>
#include <string_view>

#include "gis/dbf/reader.h"
#include "gis/dbf/table_layout.h"
#include "gis/report.h"
#include "run/byte_order.h"
#include "run/console.h"
#include "run/unit_reading.h"
#include "text/strings.h"

namespace vantelgis {

namespace {

// Where things stand in a field descriptor. The decimals behind the length aren't needed: a number
// passes through as the text that it is.
constexpr std::size_t kTypeOffset = kFieldNameBytes;
constexpr std::size_t kLengthOffset = 16;

void readHeaderBytes(int unit, char* out, std::size_t size) {
    gisRequireRead(readBytes(unit, out, size),
                   {"ERROR 0404 - End of .dbf file encountered whilst reading header.",
                    "ERROR 0403 - Reading .dbf file header."});
}

// The date and the sizes of header and record are passed over: in a plain table the terminator and
// the field widths say the same. Where they don't, the first record begins with a wrong mark.
std::int32_t readRecordCount(int unit) {
    char header[kTableHeaderBytes];
    readHeaderBytes(unit, header, sizeof header);
    return fromLittleEndian<std::int32_t>(header + kRecordCountOffset);
}

// Reads a field descriptor, by the pieces that can stop the run; false when the terminator stands
// in its place.
bool readField(dbfL_& dbf) {
    char bytes[kDescriptorBytes];
    readHeaderBytes(dbf.dbfUnit, bytes, 1);
    if (bytes[0] == kTerminator) return false;
    readHeaderBytes(dbf.dbfUnit, bytes + 1, kFieldNameBytes - 1);
    if (dbf.nFields == kMaxDbfFields)
        gisStop("ERROR 0401 - Exceeded maximum number of dbf Fields.");
    readHeaderBytes(dbf.dbfUnit, bytes + kFieldNameBytes, kLengthOffset + 1 - kFieldNameBytes);
    const int width = static_cast<unsigned char>(bytes[kLengthOffset]);
    if (width == 0) {
        gisStop("ERROR 0402 - dbf field length of ", width,
                " is outside allowable range of 1 to 255.");
    }
    readHeaderBytes(dbf.dbfUnit, bytes + kLengthOffset + 1, kDescriptorBytes - kLengthOffset - 1);

    const auto i = static_cast<std::size_t>(dbf.nFields++);
    cleanAttributeName(dbf.fieldName[i], {bytes, kFieldNameBytes}, kFieldNameBytes);
    dbf.fieldType[i] = bytes[kTypeOffset];
    dbf.fieldWidth[i] = width;
    dbf.recordLength += width;
    return true;
}

void reportFields(const dbfL_& dbf) {
    consoleText(dbf.nFields, " DBF Fields (Name [#/Type/Length]): ");
    for (int i = 0; i < dbf.nFields; ++i) {
        consoleText(dbf.fieldName[i], " [", i + 1, "/", std::string_view(&dbf.fieldType[i], 1), "/",
                    dbf.fieldWidth[i], "]  ");
    }
    consoleLine();
}

}  // namespace

void dbfReadHeader(dbfL_& dbf) {
    if (dbf.dbfUnit <= 0) return;
    rewindUnit(dbf.dbfUnit);
    dbf.nRecords = readRecordCount(dbf.dbfUnit);
    consoleLine("DBF file contains ", dbf.nRecords, " records.");
    dbf.nFields = dbf.recordLength = dbf.recordNo = 0;
    while (readField(dbf)) {
    }
    if (dbf.nFields < 1) gisStop("ERROR 0319 - No attributes specified in .dbf file.");
    reportFields(dbf);
}

}  // namespace vantelgis
