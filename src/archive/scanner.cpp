#include "archive/scanner.h"

#include "run/console.h"
#include "run/plain_line.h"
#include "run/stop.h"
#include "run/unit_reading.h"
#include "text/characters.h"
#include "text/free_format.h"
#include "text/strings.h"

namespace vantelgis {

namespace {

constexpr std::string_view kData = "data";
constexpr std::string_view kPlainBlock = "data {";

constexpr bool contains(std::string_view line, char c) {
    return line.find(c) != std::string_view::npos;
}

// Words of a header line, anywhere in it.
struct HeaderWord {
    std::string_view word;
    bool D12Object::*flag;
};
constexpr HeaderWord kHeaderWords[] = {
    {"2d", &D12Object::is2d},
    {"alignment", &D12Object::is2d},
    {"pipeline", &D12Object::is2d},
    {"3d", &D12Object::is3d},
    {"4d", &D12Object::is3d},
    {"drainage", &D12Object::is3d},
    {"face", &D12Object::is3d},
    {"interface", &D12Object::is3d},
    {"pipe", &D12Object::is3d},
    {"super", &D12Object::isSuper},
    {"polyline", &D12Object::isPolyline},
};

// Most strings have the same header as the one before, which is kept unless data begin in it too.
void takeHeader(std::string_view line, D12Object& object) {
    object.typeText = d12TypeText(line);
    if (object.header == line) return;
    const bool kept = line.size() <= object.header.capacity() && !d12BeginsData(line);
    object.header = kept ? line : std::string_view{};
    object.is2d = object.is3d = object.isSuper = object.isPolyline = false;
    for (const HeaderWord& row : kHeaderWords)
        if (containsIgnoringCase(line, row.word)) object.*row.flag = true;
}

[[noreturn]] void stopAtHeaderLine(std::string_view line) {
    stopWith("", "ERROR - Reading data (d12ObjectType)", line);
}

// A line between a string's header and its data.
void takeAttribute(std::string_view line, D12Object& object) {
    constexpr std::string_view kClosed = "closed";
    Item item = Item::unchanged;
    if (beginsWith(line, "name")) {
        FreeFormat list{fromColumn(line, 5)};
        item = takeWord(list, object.name);
    } else if (beginsWith(line, "z")) {
        FreeFormat list{fromColumn(line, 2)};
        item = takeReal(list, object.level);
    } else if (object.isPolyline && beginsWith(line, kClosed)) {
        const std::string_view value = withoutLeadingBlanks(line.substr(kClosed.size()));
        object.closed = !value.empty() && contains("1YyTt", value.front());
    }
    if (!taken(item)) stopAtHeaderLine(line);
}

// Takes a line of nothing but a name in quotes.
bool takePlainName(PlainLine& line, D12Object& object) {
    std::string_view name;
    if (!line.word("name") || !line.quoted(name) || !line.end()) return false;
    object.name = name;
    return true;
}

// Passes over lines behind a header that say nothing of interest here, as most do: none of the
// words above stands at their start, and no data begin. A plain name and the plain first line of
// data, which is then true, are taken too. A line of any other kind is left to be read, and so is
// the last one that the buffer holds whole.
bool takePlainAttributes(int unit, D12Object& object) {
    const auto mayCount = [&object](char c) {
        const char first = toLower(c);
        return first == 'n' || first == 'z' || (first == 'c' && object.isPolyline);
    };
    PlainLine line(unit, kShortLineCapacity);
    for (bool taken = true; taken;) {
        line.passOverLinesWithout('{', mayCount);
        if (line.exactly(kPlainBlock)) return line.end();
        taken = mayCount(*line.text())
                    ? takePlainName(line, object)
                    : !containsIgnoringCase(line.rest(), kData) && line.passOver();
    }
    return false;
}

// Passes over lines without a brace, which begin no string, and takes the next one if it is the
// very header of the string before.
bool takeSameHeader(int unit, D12Object& object) {
    PlainLine line(unit, kShortLineCapacity);
    line.passOverLinesWithout('{', [](char) { return false; });
    if (object.header.blank() || !line.exactly(object.header) || !line.end()) return false;
    object.isString = true;
    object.typeText = d12TypeText(object.header);
    return true;
}

// What a string, or a further block of one, has as long as no line says otherwise.
void startBlock(D12Object& object) {
    object.closed = object.isPolyline;
    object.level = kNullElevation;
}

// Nearly all data begin with a line that has the one word alone.
void classifyBlock(std::string_view line, D12Object& object) {
    const bool plain = line == kPlainBlock;
    object.data2d = object.is2d || (!plain && containsIgnoringCase(line, "data_2d"));
    object.data3d =
        object.is3d || object.isPolyline || (!plain && containsIgnoringCase(line, "data_3d"));
    object.hipData = !plain && containsIgnoringCase(line, "hipdata");
}

}  // namespace

std::string_view d12CountingPart(std::string_view line) {
    line = withoutLeadingBlanks(line);
    return withoutTrailingBlanks(line.substr(0, line.find("//")));
}

bool d12NextLine(int unit, std::string_view& line) {
    const ReadResult result = readLine(unit, line);
    if (result == ReadResult::failed) stopReadingFile(unitName(unit));
    return result == ReadResult::ok;
}

bool d12ReadLine(int unit, std::string_view& line, std::size_t capacity) {
    while (d12NextLine(unit, line)) {
        line = d12CountingPart(line.substr(0, capacity));
        if (!line.empty()) return true;
    }
    line = {};
    return false;
}

bool d12BeginsData(std::string_view line) {
    return line == kPlainBlock || (contains(line, '{') && containsIgnoringCase(line, kData));
}

// The braces come first: nearly all lines that are passed over have none.
bool d12BeginsString(std::string_view line) {
    return contains(line, '{') && containsIgnoringCase(line, "string");
}

std::string_view d12TypeText(std::string_view line) {
    constexpr std::size_t kTypeStart = 7;  // behind "string "
    const std::size_t brace = line.find('{');
    const std::size_t length = brace > kTypeStart + 1 ? brace - kTypeStart - 1 : 0;
    return withoutTrailingBlanks(fromColumn(line, kTypeStart + 1).substr(0, length));
}

bool d12BeginObject(std::string_view line, D12Object& object) {
    if (!object.dataFollows) {
        object.isString = d12BeginsString(line);
        if (!object.isString) {
            object.typeText = "unknown";
            return false;
        }
        takeHeader(line, object);
    }
    startBlock(object);
    return true;
}

namespace {

bool nextAttribute(int unit, std::string_view& line, D12Object& object, bool all) {
    while (!d12BeginsData(line) && !atEnd(unit)) {
        if (!all && takePlainAttributes(unit, object)) {
            line = kPlainBlock;
            break;
        }
        if (!d12ReadLine(unit, line, kShortLineCapacity)) continue;
        takeAttribute(line, object);
        return true;
    }
    classifyBlock(line, object);
    return false;
}

// Goes on to the line with which data begin.
void findBlock(int unit, std::string_view& line, D12Object& object) {
    while (nextAttribute(unit, line, object, false)) {
    }
}

}  // namespace

bool d12NextAttribute(int unit, std::string_view& line, D12Object& object) {
    return nextAttribute(unit, line, object, true);
}

bool d12ObjectType(int unit, std::string_view& line, D12Object& object) {
    if (!d12BeginObject(line, object)) return false;
    findBlock(unit, line, object);
    return true;
}

bool d12NextObject(int unit, std::string_view& line, D12Object& object) {
    while (!atEnd(unit)) {
        if (!object.dataFollows && takeSameHeader(unit, object)) {
            startBlock(object);
            line = {};  // the header needn't be looked at for data again
            findBlock(unit, line, object);
            return true;
        }
        if (d12ReadLine(unit, line, kShortLineCapacity) && d12ObjectType(unit, line, object))
            return true;
    }
    return false;
}

}  // namespace vantelgis
