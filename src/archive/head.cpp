#include "archive/head.h"

#include <cmath>
#include <cstddef>

#include "run/console.h"
#include "run/messages.h"
#include "run/opener.h"
#include "run/stop.h"
#include "run/unit_reading.h"
#include "text/characters.h"
#include "text/free_format.h"
#include "text/number_field.h"
#include "text/strings.h"

namespace vantelgis {

namespace {

constexpr std::size_t kMarkLength = 3;  // of the UTF-8 byte order mark
constexpr std::size_t kValueCapacity = 100;

// The next line as far as `capacity` reaches; the byte order mark counts for that cut and is
// dropped behind it.
ReadResult readHeadLine(int unit, std::size_t capacity, bool dropMark, std::string_view& line) {
    const ReadResult result = readLine(unit, line);
    if (result != ReadResult::ok) return result;
    line = withoutTrailingBlanks(line.substr(0, capacity));
    if (dropMark) line = fromColumn(line, kMarkLength + 1);
    return result;
}

// The value stands at a fixed place: behind "// ", a text as long as the keyword, and one
// character.
Text<100> valueIn(std::string_view line, std::string_view keyword) {
    constexpr std::size_t kCommentMark = 3;
    const std::string_view value = withoutTrailingBlanks(
        fromColumn(line, kCommentMark + keyword.size() + 2).substr(0, kValueCapacity));
    if (!value.starts_with('"')) return value;
    return value.size() < 3 ? std::string_view{} : value.substr(1, value.size() - 2);
}

bool staysInHead(std::string_view line) {
    return line.empty() || line.starts_with("//") || line.starts_with("null");
}

constexpr std::string_view trueOrFalse(bool value) {
    return value ? "true" : "false";
}

// Takes the null elevation from a line of the head; false when it doesn't convert.
bool takeNullLine(std::string_view line, float& nullValue, bool nullKeyword) {
    if (nullKeyword) {
        consoleLine("\n12D null value set to keyword \"null\"");
        return true;
    }
    FreeFormat list{fromColumn(line, 6)};
    if (!taken(takeReal(list, nullValue))) return false;
    consoleLine("\n12D null value set to:", FixedText{static_cast<double>(nullValue), 12, 3});
    return true;
}

bool warnOfHead() {
    DMESSAGES.text1 = "WARNING - Problems finding start of data in .12da file";
    reportMessage(1);
    pauseRun();
    return false;
}

}  // namespace

bool Archive::hasElevation(float z) const {
    return std::fabs(z - nullValue) > 0.001F;
}

void d12OpenArchive(Archive& archive, std::string_view path) {
    openUnit(archive.unit, "I ", path);
    consoleLine("\nReading .12da header information...");
    const Text<100> version = d12ArchiveVersion(archive.unit);
    consoleLine("12d Archive Version: ", version);
    archive.nullKeyword = d12NullKeyword(archive.unit);
    consoleLine("null_keyword: ", trueOrFalse(archive.nullKeyword));
    archive.hexFloats = d12HexFloats(archive.unit);
    consoleLine("hex_floats: ", trueOrFalse(archive.hexFloats));
    consoleLine("Finished reading header information.");
    rewindUnit(archive.unit);
}

bool d12BeginData(Archive& archive) {
    consoleLine("\nSearching for 12da objects...");
    archive.nullValue = kNullElevation;
    return d12FindData(archive.unit, archive.nullValue, archive.nullKeyword);
}

bool d12CheckEncoding(int unit) {
    int markUnit = 0;
    openUnit(markUnit, "BI", unitName(unit));
    char mark[kMarkLength];
    const ReadResult result = readBytes(markUnit, mark, kMarkLength);
    if (result == ReadResult::failed) stopReadingFile(unitName(unit));
    const std::string_view bytes{mark, result == ReadResult::ok ? kMarkLength : 0};
    if (bytes.starts_with("\xFE\xFF") || bytes.starts_with("\xFF\xFE"))
        stopWith("", "ERROR - Source 12da is encoded using UTF-16");
    closeUnit(markUnit);
    return bytes == "\xEF\xBB\xBF";
}

Text<100> d12HeaderValue(int unit, std::string_view keyword) {
    bool marked = d12CheckEncoding(unit);
    rewindUnit(unit);
    while (!atEnd(unit)) {
        std::string_view line;
        const ReadResult result = readHeadLine(unit, kShortLineCapacity, marked, line);
        marked = false;
        if (result != ReadResult::ok) continue;
        if (containsIgnoringCase(line, keyword)) return valueIn(line, keyword);
        if (!staysInHead(line)) break;
    }
    return {};
}

Text<100> d12ArchiveVersion(int unit) {
    return d12HeaderValue(unit, "archive_version");
}
bool d12NullKeyword(int unit) {
    return looselyEqual(d12HeaderValue(unit, "null_keyword"), "true");
}
bool d12HexFloats(int unit) {
    return looselyEqual(d12HeaderValue(unit, "output_hex_floats"), "true");
}

bool d12FindData(int unit, float& nullValue, bool nullKeyword) {
    bool marked = d12CheckEncoding(unit);
    rewindUnit(unit);
    Text<100> line;  // a copy: the test for the end of the file may move what the unit holds
    while (!beginsWith(line, "model") && !atEnd(unit)) {
        if (beginsWith(line, "null") && !takeNullLine(line, nullValue, nullKeyword))
            return warnOfHead();
        std::string_view next;
        if (readHeadLine(unit, line.capacity(), marked, next) != ReadResult::ok)
            return warnOfHead();
        marked = false;
        line = next;
    }
    return true;
}

}  // namespace vantelgis
