#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "drivers/drivers.h"
#include "drivers/runs.h"
#include "run/units.h"
#include "support/shape_bytes.h"

namespace vantelgis::fuzz {

namespace {

// Each file of a layer or archive is padded in front of its content by something that adds nothing
// to the result, so that a chosen byte of the content is the first one behind the reader's buffer.
// A run with little padding says what the result has to be.

constexpr std::size_t kLittle = 2048;
constexpr std::size_t kLongestContent = 8192;
constexpr std::size_t kBefore = 2;   // places at the end of the padding
constexpr std::size_t kShifts = 12;  // for each input, beside the run with little padding

// `size` bytes of lines that begin with `start`.
std::string paddingLines(std::size_t size, std::string_view start) {
    constexpr std::size_t kLine = 4096;
    std::string lines;
    lines.reserve(size + kLongestContent);
    lines.assign(size, '#');
    for (std::size_t end = kLine; end < size; end += kLine) lines[end - 1] = '\n';
    for (std::size_t begin = 0; begin + start.size() < size; begin += kLine)
        lines.replace(begin, start.size(), start);
    if (size > 0) lines.back() = '\n';
    return lines;
}

memory::Files projections() {
    return {{"Header.mif", "CoordSys NonEarth\n"}, {"Header.prj", "PROJCS"}, {"a.prj", "PROJCS"}};
}

memory::Files withLayer(std::string_view extension, std::string first,
                        std::string_view otherExtension, std::string second) {
    memory::Files files = projections();
    files["a" + std::string(extension)] = std::move(first);
    files["a" + std::string(otherExtension)] = std::move(second);
    return files;
}

memory::Files padMif(const Input& input, std::size_t size) {
    std::string text = paddingLines(size, "CoordSys\n");
    return withLayer(".mif", std::move(text.append(input.first)), ".mid",
                     std::string(input.second));
}

// The first record is so long; what counts of it is the same in all runs.
memory::Files padMid(const Input& input, std::size_t size) {
    constexpr std::string_view kValues = "7,8,";
    std::string text;
    text.reserve(size + kLongestContent);
    text.append(kValues).append(size - kValues.size() - 1, '#').append(1, '\n');
    return withLayer(".mif", std::string("CoordSys\n").append(input.first), ".mid",
                     std::move(text.append(input.second)));
}

memory::Files padArchive(const Input& input, std::size_t size) {
    memory::Files files = projections();
    files["a.12da"] = paddingLines(size, "//").append(input.first).append(input.second);
    return files;
}

// The header, and a polygon, which no conversion wants. They end at any multiple of four bytes.
constexpr std::size_t kShpHeader = 100;
memory::Files padShp(const Input& input, std::size_t size) {
    constexpr std::size_t kFixed = 52;
    constexpr std::size_t kPoint = 16;
    const std::size_t rest = size - kShpHeader - kFixed;
    std::string bytes;
    bytes.reserve(size + kLongestContent);
    bytes.append(input.first.substr(0, kShpHeader));
    bytes.append(integers({0, 0, 5})).append(32, '\0');
    bytes.append(integers(
        {static_cast<std::int32_t>(rest % kPoint / 4), static_cast<std::int32_t>(rest / kPoint)}));
    bytes.append(rest, '\0').append(input.first.substr(kShpHeader));
    return withLayer(".shp", std::move(bytes), ".dbf", std::string(input.second));
}

struct Kind {
    Arguments (*arguments)(unsigned mode, std::string_view file);
    std::string_view file;                                       // the one that is converted
    memory::Files (*pad)(const Input& input, std::size_t size);  // bytes before the content
    std::size_t step;  // between two places of the content
    std::size_t end;   // of what the buffer holds
};
// What is left of a line that is longer than the buffer stays in it; the next bytes go behind that.
constexpr std::size_t kEndBehindLongLine = 2 * kBufferSize - kLineCapacity;
constexpr Kind kKinds[] = {
    {layerArguments, "a.mif", padMif, 1, kBufferSize},
    {layerArguments, "a.mif", padMid, 1, kBufferSize},
    {layerArguments, "a.mif", padMid, 1, kEndBehindLongLine},
    {layerArguments, "a.shp", padShp, 4, kBufferSize},
    {archiveArguments, "a.12da", padArchive, 1, kBufferSize},
};

Outcome outputsOf(memory::Files files, const Arguments& arguments) {
    std::vector<std::string> inputs;
    for (const auto& [name, bytes] : files) inputs.push_back(name);
    Outcome outcome = outcomeOf(std::move(files), arguments);
    for (const std::string& name : inputs) outcome.files.erase(name);
    return outcome;
}

void requireSame(const Outcome& one, const Outcome& other) {
    if (one != other) stopAtDifference("The result depends on where the buffer ends", one, other);
}

void shift(const Kind& kind, const Input& input, std::size_t first) {
    const Arguments arguments = kind.arguments(input.mode, kind.file);
    const Outcome expected = outputsOf(kind.pad(input, kLittle), arguments);
    for (std::size_t i = 0; i < kShifts; ++i) {
        const std::size_t place = std::min((first + i) * kind.step, kBufferSize / 2);
        const std::size_t size = kind.end + kBefore * kind.step - place;
        requireSame(expected, outputsOf(kind.pad(input, size), arguments));
    }
}

// The records of a table all have the length that its header says: they move by whole records, but
// a field more makes them longer, and lets the buffer end elsewhere in one.
struct Table {
    std::string header;
    std::string_view records;
    std::size_t recordSize = 1;
};

// False for bytes that have no such header.
bool takeTable(std::string_view bytes, std::size_t width, Table& table) {
    constexpr std::size_t kDescriptor = 32;
    constexpr std::size_t kTypeOffset = 11;
    constexpr std::size_t kWidthOffset = 16;
    std::size_t at = kDescriptor;
    for (; at + kDescriptor <= bytes.size() && bytes[at] != '\r'; at += kDescriptor)
        table.recordSize += static_cast<unsigned char>(bytes[at + kWidthOffset]);
    if (at >= bytes.size() || bytes[at] != '\r') return false;
    std::string more = "More";
    more.resize(kDescriptor);
    more[kTypeOffset] = 'C';
    more[kWidthOffset] = static_cast<char>(width);
    table.header = std::string(bytes.substr(0, at)) + more + '\r';
    table.records = bytes.substr(at + 1);
    return true;
}

// Deleted records stand in front of those of the content.
std::string padTable(const Table& table, std::size_t width, std::size_t size) {
    std::string bytes;
    bytes.reserve(size + table.header.size() + kLongestContent);
    bytes = table.header;
    const std::size_t wide = table.recordSize + width;
    while (bytes.size() + wide <= size) bytes.append(1, '*').append(wide - 1, '#');
    for (std::size_t at = 0; at < table.records.size(); at += table.recordSize)
        bytes.append(table.records.substr(at, table.recordSize)).append(width, '-');
    return bytes;
}

void shiftTable(const Input& input, std::size_t first) {
    const Arguments arguments = layerArguments(input.mode, "a.shp");
    for (std::size_t i = 0; i < kShifts / 2; ++i) {
        const std::size_t width = (first + i) % 255 + 1;
        Table table;
        if (!takeTable(input.second, width, table)) return;
        const auto padded = [&](std::size_t size) {
            return outputsOf(
                withLayer(".shp", std::string(input.first), ".dbf", padTable(table, width, size)),
                arguments);
        };
        const std::size_t later = i % 2 * table.recordSize;  // the end of the padding, or behind it
        requireSame(padded(0), padded(kBufferSize + later));
    }
}

}  // namespace

void runBoundaries(std::string_view bytes) {
    if (bytes.empty()) return;
    const auto part = static_cast<unsigned char>(bytes.front());
    const Input input = split(bytes.substr(1));
    const std::size_t first = (input.first.size() + input.second.size()) * part / 256;
    const std::size_t kind = input.mode / 8 % (std::size(kKinds) + 1);
    if (kind == std::size(kKinds)) return shiftTable(input, part);
    if (kKinds[kind].pad == padShp && input.first.size() < kShpHeader) return;
    shift(kKinds[kind], input, first / kKinds[kind].step);
}

}  // namespace vantelgis::fuzz
