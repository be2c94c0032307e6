#include <algorithm>
#include <cstring>
#include <string_view>

#include "gis/dbf/table_layout.h"
#include "gis/dbf/writer.h"
#include "gis/report.h"
#include "run/platform.h"
#include "run/unit_writing.h"
#include "text/characters.h"
#include "text/strings.h"

namespace vantelgis {

namespace {

constexpr std::size_t kLongestName = kFieldNameBytes - 1;
constexpr std::int64_t kLongestRecord = 65534;  // with its mark it fills 16 bits

// What a field of a type that begins with `word` becomes; width 0 stands for that of the
// definition.
struct FieldType {
    std::string_view word;
    char letter;
    std::int32_t width;
    std::int32_t decimals;
};
constexpr FieldType kFieldTypes[] = {
    {"CHAR", 'C', 0, 0},    {"LOGICAL", 'C', 1, 0}, {"FLOAT", 'N', 16, 5},
    {"INTEGER", 'N', 8, 0}, {"DECIMAL", 'N', 0, 0},
};

const FieldType& fieldTypeOf(std::string_view type) {
    type = withoutLeadingBlanks(type);
    for (const FieldType& row : kFieldTypes)
        if (beginsWith(type, row.word)) return row;
    stopShouldNotBeHere("Unrecognised DBF field");
}

void defineField(const FieldDefinition& field, std::size_t i, dbfL_& dbf) {
    Text<32> name{withoutLeadingBlanks(field.name)};
    cleanAttributeName(name, name, name.capacity());
    dbf.fieldName[i] = name.view().substr(0, kLongestName);
    const FieldType& type = fieldTypeOf(field.type);
    dbf.fieldType[i] = type.letter;
    dbf.fieldWidth[i] = type.width > 0 ? type.width : field.width;
    dbf.fieldDecimals[i] = type.decimals;
}

// Takes the definitions over and gives the length of a record without its mark.
std::int64_t defineFields(FieldDefinitions fields, dbfL_& dbf) {
    if (std::ssize(fields) > kMaxDbfFields)
        gisStop("ERROR 0411 - Exceeded maximum number of dbf Fields trying to write dbf file.");
    if (fields.empty()) gisStop("ERROR 0319 - No attributes specified when writing .dbf file.");
    dbf.nRecords = 0;
    dbf.nFields = static_cast<std::int32_t>(fields.size());
    std::int64_t length = 0;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        defineField(fields[i], i, dbf);
        length += dbf.fieldWidth[i];
    }
    if (length > kLongestRecord) stopShouldNotBeHere("dbfTotLen>32767");
    return length;
}

void putZeros(int unit, std::size_t count) {
    char* const out = reserve(unit, count);
    commit(unit, std::fill_n(out, count, '\0'));
}

// Version, date, count of records, length of the header and of a record with its mark.
void putTableHeader(const dbfL_& dbf, std::int64_t recordLength) {
    constexpr std::int8_t kDBase3 = 3;
    const int unit = dbf.dbfUnit;
    const platform::Date today = platform::localDate();
    putValue(unit, kDBase3);
    putValue(unit, i1u(today.year - 1900));
    putValue(unit, i1u(today.month));
    putValue(unit, i1u(today.day));
    putValue(unit, dbf.nRecords);
    const std::size_t headerLength =
        kTableHeaderBytes + kDescriptorBytes * static_cast<std::size_t>(dbf.nFields) + 1;
    putValue(unit, i2u(static_cast<std::int64_t>(headerLength)));
    putValue(unit, i2u(recordLength + 1));
    putZeros(unit, 20);
}

// Name, type, four bytes that had a use in memory only, width, decimals, reserved bytes.
void putDescriptor(const dbfL_& dbf, std::size_t i) {
    const int unit = dbf.dbfUnit;
    put(unit, dbf.fieldName[i]);
    putZeros(unit, kFieldNameBytes - dbf.fieldName[i].size());
    put(unit, {&dbf.fieldType[i], 1});
    putZeros(unit, 4);
    const std::int32_t width = dbf.fieldWidth[i];
    if (width < 1 || width > 255) {
        gisStop("ERROR 0412 - dbf field length of ", width,
                " is outside allowable range of 1 to 255 when writing dbf file.");
    }
    putValue(unit, i1u(width));
    putValue(unit, i1u(dbf.fieldDecimals[i]));
    putZeros(unit, 14);
}

}  // namespace

void dbfWriteHeader(FieldDefinitions fields, dbfL_& dbf) {
    if (dbf.dbfUnit <= 0) return;
    const bool emptied = emptyUnit(dbf.dbfUnit);
    const std::int64_t recordLength = defineFields(fields, dbf);
    putTableHeader(dbf, recordLength);
    dbf.recordLength = static_cast<std::int32_t>(recordLength);
    dbf.bytes.assign(static_cast<std::size_t>(recordLength) + 1, ' ');  // the mark is a blank too
    dbf.splitOfBytes = 0;
    for (std::size_t i = 0; i < static_cast<std::size_t>(dbf.nFields); ++i) putDescriptor(dbf, i);
    put(dbf.dbfUnit, {&kTerminator, 1});
    if (!emptied || !flushUnit(dbf.dbfUnit)) gisStop("ERROR 0413 - Writing .dbf file header.");
}

std::int16_t i2u(std::int64_t value) {
    if (value < 0 || value > 65535) stopShouldNotBeHere("i2u: i4 outside range");
    return static_cast<std::int16_t>(value < 32768 ? value : value - 65536);
}

std::int8_t i1u(std::int64_t value) {
    if (value < 0 || value > 255) stopShouldNotBeHere("i1u: i4 outside range");
    return static_cast<std::int8_t>(value < 128 ? value : value - 256);
}

}  // namespace vantelgis
