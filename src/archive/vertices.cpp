#include "archive/vertices.h"

#include <algorithm>
#include <cstddef>

#include "run/console.h"
#include "run/messages.h"
#include "run/plain_line.h"
#include "run/stop.h"
#include "run/unit_reading.h"
#include "text/characters.h"
#include "text/free_format.h"
#include "text/joined.h"
#include "text/limits.h"
#include "text/number_field.h"
#include "text/strings.h"

namespace vantelgis {

namespace {

// A line with a null in it counts by its first 100 characters once the number stands there. One as
// short as this can't get so long.
constexpr std::size_t kReplacedCapacity = 100;
constexpr std::size_t kPlainCapacity = 80;

constexpr std::string_view kNullWord = "null";
constexpr std::string_view kNullHexadecimal = "-0x1.869f000000000p+16";  // kNullElevation

constexpr bool contains(std::string_view line, char c) {
    return line.find(c) != std::string_view::npos;
}

struct Vertex {
    double x;
    double y;
    float z;
};

// What the lines of one block look like.
struct BlockForm {
    bool threeNumbers;
    bool nullWords;  // `null` may stand for a number
    bool hexFloats;
    float level;  // elevation of a vertex of two numbers
};

// Where a block's vertices go.
class VertexTable {
  public:
    VertexTable(ArchiveVertices& vertices, std::int32_t limit) : v_(vertices), limit_(limit) {
        makeRoom();
    }

    [[nodiscard]] std::int32_t count() const { return count_; }
    [[nodiscard]] Vertex first() const { return at(0); }
    void setFirst(const Vertex& vertex) { set(0, vertex); }

    // The place behind the last vertex, as an earlier string left it: a number that a line leaves
    // out keeps what stands there.
    [[nodiscard]] Vertex next() {
        makeRoom();
        return at(static_cast<std::size_t>(count_));
    }
    void add(const Vertex& vertex) {
        makeRoom();
        set(static_cast<std::size_t>(count_++), vertex);
    }
    void checkLimit() const {
        if (count_ >= limit_) stopAtLimit();
    }

  private:
    [[nodiscard]] Vertex at(std::size_t i) const { return {v_.x[i], v_.y[i], v_.z[i]}; }
    void set(std::size_t i, const Vertex& vertex) {
        v_.x[i] = vertex.x;
        v_.y[i] = vertex.y;
        v_.z[i] = vertex.z;
    }
    void makeRoom() {
        if (v_.z.size() > static_cast<std::size_t>(count_)) return;
        if (v_.z.size() == v_.z.capacity()) reserve();
        v_.x.push_back(0);
        v_.y.push_back(0);
        v_.z.push_back(0);
    }
    // Room goes by what is there, never by a number from the file. What isn't used of it takes no
    // memory yet, but every step copies what is there.
    void reserve() {
        constexpr std::size_t kFewest = 1024;
        constexpr std::size_t kMost = std::size_t{kMaxVertices} + 1;  // with the closing one
        const std::size_t room = std::min(std::max(4 * v_.z.size(), kFewest), kMost);
        v_.x.reserve(room);
        v_.y.reserve(room);
        v_.z.reserve(room);
    }
    [[noreturn]] void stopAtLimit() const;

    ArchiveVertices& v_;
    std::int32_t limit_;
    std::int32_t count_ = 0;
};

void VertexTable::stopAtLimit() const {
    constexpr int kColumns = 8;
    DMESSAGES.text1 = "ERROR - Exceeded number of allowable nodes in a single polyline or region.";
    DMESSAGES.text2 = "        Requested";
    DMESSAGES.text2 += IntegerText(count_ + 1, kColumns);
    DMESSAGES.text2 += "        Limit";
    DMESSAGES.text2 += IntegerText(limit_, kColumns);
    reportMessage(1);
    stopRun();
}

// Takes a line of the common kind, in which there is nothing but the numbers and perhaps a null for
// the elevation.
bool takePlainLine(PlainLine& line, const BlockForm& form, Vertex& vertex) {
    if (!line.number(vertex.x) || !line.number(vertex.y)) return false;
    if (!form.threeNumbers) {
        vertex.z = form.level;
    } else if (!line.number(vertex.z)) {
        if (!form.nullWords || !line.word(kNullWord)) return false;
        vertex.z = kNullElevation;
    }
    return line.end();
}

// Takes lines of the common kind, and the one behind them if that has the brace that ends the
// block: true, and whatever else it holds is of no interest.
bool takePlainLines(int unit, const BlockForm& form, VertexTable& table) {
    PlainLine line(unit, kPlainCapacity);
    for (Vertex vertex; takePlainLine(line, form, vertex); table.add(vertex)) table.checkLimit();
    return line.begins('}') && line.passOver();
}

// The line with each `null` replaced; what doesn't fit is cut.
Joined<kReplacedCapacity> withoutNullWords(std::string_view line, std::string_view number) {
    Joined<kReplacedCapacity> text;
    while (!line.empty()) {
        const bool isNull = beginsWith(line, kNullWord);
        text.add(isNull ? number : line.substr(0, 1));
        line.remove_prefix(isNull ? kNullWord.size() : 1);
    }
    return text;
}

[[noreturn]] void stopAtVertexLine(Item item, std::string_view line) {
    if (item == Item::end) {
        DMESSAGES.text1 = "ERROR - Unexpected end of .12da file encountered.";
    } else {
        DMESSAGES.text1 = "ERROR - Reading .12da file.  Erroneous line is:";
        DMESSAGES.text2 = line;
    }
    reportMessage(1);
    stopRun();
}

// Any vertex line, without leading blanks and comment.
void takeVertexLine(std::string_view line, const BlockForm& form, Vertex& vertex) {
    Joined<kReplacedCapacity> replaced;
    FreeFormat list{line};
    if (form.nullWords && containsIgnoringCase(line, kNullWord)) {
        replaced = withoutNullWords(line, form.hexFloats ? kNullHexadecimal : kNullElevationText);
        list.continueWith(replaced);
    }
    if (!form.threeNumbers) vertex.z = form.level;
    Item item = takeReal(list, vertex.x);
    if (taken(item)) item = takeReal(list, vertex.y);
    if (taken(item) && form.threeNumbers) item = takeReal(list, vertex.z);
    if (!taken(item)) stopAtVertexLine(item, line);
}

BlockForm formOf(const Archive& archive, const D12Object& object) {
    const bool threeNumbers = object.data3d || object.hipData;
    return {threeNumbers, threeNumbers && archive.nullKeyword, archive.hexFloats, object.level};
}

// Takes any line; false if the block ends there.
bool takeLine(int unit, std::string_view line, const BlockForm& form, VertexTable& table) {
    line = d12CountingPart(line.substr(0, kVertexLineCapacity));
    if (line.empty()) return true;
    if (contains(line, '}')) return false;
    const Text<kVertexLineCapacity> held = line;  // what the unit holds moves in the next test
    // No brace ends the block: the file is cut off, and perhaps this very line.
    if (atEnd(unit)) return false;
    table.checkLimit();
    Vertex vertex = table.next();
    takeVertexLine(held, form, vertex);
    table.add(vertex);
    return true;
}

// Reads up to the end of the block. False when the file ends before its first line.
bool readBlock(int unit, const BlockForm& form, VertexTable& table) {
    while (!takePlainLines(unit, form, table)) {
        std::string_view line;
        if (!d12NextLine(unit, line)) return table.count() > 0;
        if (!takeLine(unit, line, form, table)) break;
    }
    return true;
}

// Looks for a further data block of a super string and stops in front of it.
void findNextBlock(int unit, D12Object& object) {
    object.dataFollows = false;
    std::string_view line;
    for (int depth = 1; depth > 0 && !object.dataFollows && !atEnd(unit);) {
        if (!d12ReadLine(unit, line, kVertexLineCapacity)) continue;
        if (contains(line, '}')) {
            --depth;
        } else if (contains(line, '{')) {
            ++depth;
        }
        object.dataFollows = d12BeginsData(line);
    }
    if (object.dataFollows) backspaceUnit(unit);
}

}  // namespace

bool d12ReadVertices(const Archive& archive, D12Object& object, std::int32_t limit,
                     ArchiveVertices& vertices) {
    VertexTable table{vertices, limit};
    // What the first vertex has of numbers that its line, or a block without lines, leaves out.
    table.setFirst({0.0, 0.0, archive.nullValue});
    if (!object.isString || !readBlock(archive.unit, formOf(archive, object), table)) return false;
    if (object.isPolyline && object.closed) table.add(table.first());
    vertices.count = table.count();
    if (object.isSuper) {
        findNextBlock(archive.unit, object);
    } else {
        object.dataFollows = false;
    }
    return true;
}

void d12PassOver(int unit, std::string_view line, D12Object& object) {
    if (!object.dataFollows) return;
    while (!contains(line, '}') && !atEnd(unit)) d12ReadLine(unit, line, kShortLineCapacity);
    findNextBlock(unit, object);
}

}  // namespace vantelgis
