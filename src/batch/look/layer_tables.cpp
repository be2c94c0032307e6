#include "batch/look/layer_tables.h"

#include <algorithm>

#include "batch/files.h"
#include "batch/input_file.h"
#include "batch/look/dbf_table.h"
#include "batch/look/sisters.h"
#include "batch/pulse.h"
#include "run/byte_order.h"
#include "text/characters.h"
#include "text/strings.h"

namespace vantelgis::batch {

namespace {

constexpr std::int64_t kShapeHeader =
    100;  // of the .shp and the .shx (ESRI Shapefile Technical Description)
constexpr std::int64_t kIndexEntry = 8;

void tellRecordCount(std::int64_t objects, std::int64_t records, Look& look) {
    const std::string both[] = {counted(objects, "object"), counted(records, "record")};
    if (records < objects && !look.has(Find::fewRecords))
        look.find(Find::fewRecords, {both[0], both[1]});
    if (records > objects) look.find(Find::manyRecords, {both[0], both[1]});
}

void lookAtDbf(const std::string& layer, const TableWish& wish, Look& look) {
    const std::string file = findSister(layer, ".dbf").file;
    const DbfTable table = readDbfTable(file, wish.numbers, wish.full);
    if (!table.readable) return;  // the reader has said so
    if (table.deleted > 0)
        look.find(Find::deletedRows, {counted(table.deleted, "row"), namePart(file)});
    if (!table.whole)
        look.leftOut("rows of " + std::string(namePart(file)) + " between the first and the last");
    if (table.asterisks > 0) look.find(Find::asteriskNumber, {counted(table.asterisks, "row")});
    if (table.deleted > 0) return;
    if (!wish.partial) return tellRecordCount(wish.objects, table.active, look);
    const Sister index = findSister(layer, ".shx");
    const std::int64_t entries = (statusOf(index.file).size - kShapeHeader) / kIndexEntry;
    if (!index.file.empty() && entries >= wish.objects)
        tellRecordCount(entries, table.records, look);
}

struct MidLines {
    std::int64_t records = 0;  // without blank lines at the end
    std::string broken;        // the first record with a line break within quotes
    bool whole = true;
};

bool hasOpenQuote(std::string_view line) {
    return std::count(line.begin(), line.end(), '"') % 2 != 0;
}

// The records at the end of a file of which the first ones were read.
void readLastMidLines(InputFile& file, MidLines& lines) {
    std::string_view line;
    file.startLinesAt(std::max(file.linePlace(), file.size() - kWholeSize / 16));
    file.nextLine(line);  // what is left of the one before
    while (lines.broken.empty() && file.nextLine(line) && pulse())
        if (hasOpenQuote(line)) lines.broken = "near byte " + grouped(file.linePlace());
}

MidLines readMidLines(const std::string& path, bool full) {
    MidLines lines;
    InputFile file(path);
    const bool sampled = !full && file.size() > kWholeSize;
    std::string_view line;
    std::int64_t number = 0;
    while (lines.broken.empty() && file.nextLine(line) && pulse()) {
        ++number;
        if (!line.empty()) lines.records = number;
        if (hasOpenQuote(line)) lines.broken = grouped(number);
        if (!sampled || file.linePlace() <= kWholeSize / 4) continue;
        lines.whole = false;
        readLastMidLines(file, lines);
        break;
    }
    return lines;
}

void lookAtMid(const std::string& layer, const TableWish& wish, Look& look) {
    const std::string file = findSister(layer, ".mid").file;
    const MidLines lines = readMidLines(file, wish.full);
    if (!lines.whole)
        look.leftOut("records of " + std::string(namePart(file)) + " behind the first " +
                     grouped(lines.records) + ", but for the last");
    if (!lines.broken.empty()) return look.find(Find::quotedLineBreak, {lines.broken});
    if (!wish.partial && lines.whole) tellRecordCount(wish.objects, lines.records, look);
}

std::int32_t nodesOfPline(std::string_view line) {
    constexpr std::string_view kWord = "PLINE ";
    line = withoutLeadingBlanks(line);
    if (!beginsWith(line, kWord)) return 0;
    std::int32_t nodes = 0;
    for (const char c : line.substr(kWord.size())) {
        if (!isDigit(c) || nodes > 100'000'000) break;
        nodes = nodes * 10 + (c - '0');
    }
    return nodes;
}

// Blocks all over a .mif: the lines that begin an object are told by their words.
void sampleMif(const std::string& path, std::int32_t limit, bool lines, Look& look) {
    constexpr int kBlocks = 16;
    constexpr std::int64_t kBlock = std::int64_t{256} << 10;
    InputFile file(path);
    for (int block = 1; block <= kBlocks && pulse(); ++block) {
        file.startLinesAt(file.size() / (kBlocks + 1) * block);
        const std::int64_t end = file.linePlace() + kBlock;
        std::string_view line;
        file.nextLine(line);  // what is left of the one before
        while (file.linePlace() < end && file.nextLine(line)) {
            const std::string where = "near byte " + grouped(file.linePlace());
            if (beginsWith(withoutLeadingBlanks(line), "COLLECTION"))
                return look.find(Find::collection, {where});
            if (lines && nodesOfPline(line) > limit)
                return look.find(Find::tooManyNodes, {where, grouped(limit)});
        }
    }
}

bool isPlainShape(std::int32_t type) {
    return type == 0 || type == 1 || type == 3 || type == 5 || type == 8;
}

// Heads of records all over a .shp, found by the index.
void sampleShp(const std::string& path, std::int32_t limit, bool lines, Look& look) {
    constexpr std::int64_t kRecords = 2000;
    constexpr std::size_t kHead = 52;  // record head, type, box, counts of parts and points
    InputFile shapes(path);
    InputFile index(findSister(path, ".shx").file);
    const std::int64_t entries = (index.size() - kShapeHeader) / kIndexEntry;
    for (std::int64_t n = 0; n < std::min(kRecords, entries) && pulse(); ++n) {
        const std::int64_t entry = entries / std::min(kRecords, entries) * n;
        const std::string_view place = index.bytesAt(kShapeHeader + entry * kIndexEntry, 4);
        if (place.size() < 4) return;
        const std::int64_t offset = std::int64_t{2} * fromBigEndian<std::uint32_t>(place.data());
        const std::string_view head = shapes.bytesAt(offset, kHead);
        if (head.size() < 12) continue;
        const auto type = fromLittleEndian<std::int32_t>(head.data() + 8);
        if (!isPlainShape(type)) {
            look.find(Find::shapesWithZ, {"[" + std::to_string(type) + "]"});
            return;
        }
        if (type != 3 || head.size() < kHead || !lines) continue;
        const auto parts = fromLittleEndian<std::int32_t>(head.data() + 44);
        const auto points = fromLittleEndian<std::int32_t>(head.data() + 48);
        if (parts == 1 && points > limit)
            return look.find(Find::tooManyNodes, {grouped(entry + 1), grouped(limit)});
    }
}

}  // namespace

void lookAtTable(const std::string& layer, const TableWish& wish, Look& look) {
    if (inputKindOf(layer) == InputKind::shp)
        lookAtDbf(layer, wish, look);
    else
        lookAtMid(layer, wish, look);
}

void lookAtRestOfLayer(const std::string& layer, std::int32_t limit, bool lines, Look& look) {
    if (inputKindOf(layer) == InputKind::shp)
        sampleShp(layer, limit, lines, look);
    else
        sampleMif(layer, limit, lines, look);
}

bool columnTypeHasWidth(std::string_view type) {
    const std::size_t parenthesis = type.find('(');
    if (parenthesis == std::string_view::npos) return false;
    std::string_view number = withoutLeadingBlanks(type.substr(parenthesis + 1));
    if (number.starts_with('+') || number.starts_with('-')) number.remove_prefix(1);
    return !number.empty() && isDigit(number.front());
}

}  // namespace vantelgis::batch
