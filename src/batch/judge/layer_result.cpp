#include <algorithm>
#include <charconv>
#include <string_view>

#include "batch/input_file.h"
#include "batch/judge/results.h"
#include "batch/look/dbf_table.h"
#include "batch/pulse.h"
#include "run/byte_order.h"

namespace vantelgis::batch {

namespace {

constexpr std::size_t kMifYColumn = 16;  // x and y take 16 columns each
constexpr std::int64_t kShapeHeader = 100;
constexpr std::int64_t kIndexEntry = 8;
constexpr std::int32_t kPointShape = 1;

void takeCoordinates(std::string_view numbers, ResultFacts& facts) {
    if (numbers.find('*') != std::string_view::npos)
        ++facts.asterisks;
    else if (numbers.size() > kMifYColumn && numbers[kMifYColumn] != ' ')
        ++facts.touching;
}

// The records of a .mid hold text in quotes; an asterisk outside of them is a number's.
bool hasAsteriskNumber(std::string_view record) {
    bool quoted = false;
    for (const char c : record) {
        if (c == '"') quoted = !quoted;
        if (c == '*' && !quoted) return true;
    }
    return false;
}

std::int64_t countMid(const std::string& path, ResultFacts& facts) {
    InputFile file(path);
    std::string_view line;
    std::int64_t records = 0;
    while (file.nextLine(line) && pulse()) {
        ++records;
        if (hasAsteriskNumber(line)) ++facts.asterisks;
    }
    if (!file.isOpen() || file.failed()) facts.fault = "the table of the result can't be read";
    return records;
}

// The length that the head of a .shp or .shx states in 16-bit words is that of the file.
bool hasStatedLength(InputFile& file) {
    const std::string_view head = file.bytesAt(0, static_cast<std::size_t>(kShapeHeader));
    return head.size() == static_cast<std::size_t>(kShapeHeader) &&
           std::int64_t{2} * fromBigEndian<std::uint32_t>(head.data() + 24) == file.size();
}

}  // namespace

ResultFacts readMifResult(const std::string& mif, const std::string& mid) {
    constexpr std::string_view kPline = "Pline ";
    constexpr std::string_view kPoint = "Point ";
    ResultFacts facts;
    InputFile file(mif);
    std::string_view line;
    bool data = false;
    std::int64_t nodes = 0;  // that still belong to the line
    while (file.nextLine(line) && pulse()) {
        if (!data) {
            data = line == "Data";
        } else if (nodes > 0) {
            --nodes;
            takeCoordinates(line, facts);
        } else if (line.starts_with(kPline)) {
            ++facts.strings;
            std::from_chars(line.data() + kPline.size(), line.data() + line.size(), nodes);
            facts.vertices += nodes;
        } else if (line.starts_with(kPoint)) {
            ++facts.points;
            takeCoordinates(line.substr(kPoint.size()), facts);
        }
    }
    const std::int64_t records = countMid(mid, facts);
    if (!file.isOpen() || file.failed())
        facts.fault = "the result can't be read";
    else if (!data)
        facts.fault = "the result has no data";
    else if (nodes > 0)
        facts.fault = "the result ends within a line";
    else if (facts.fault.empty() && records != facts.strings + facts.points)
        facts.fault = "the result has " + std::to_string(facts.strings + facts.points) +
                      " objects and " + std::to_string(records) + " records";
    return facts;
}

ResultFacts readShpResult(const std::string& shp, const std::string& shx, const std::string& dbf) {
    ResultFacts facts;
    InputFile shapes(shp);
    InputFile index(shx);
    const DbfTable table = readDbfTable(dbf, 255, true);
    if (!hasStatedLength(shapes) || !hasStatedLength(index) || !table.readable) {
        facts.fault = "the shapefile of the result is not whole";
        return facts;
    }
    const std::int64_t objects = (index.size() - kShapeHeader) / kIndexEntry;
    const std::string_view head = shapes.bytesAt(0, static_cast<std::size_t>(kShapeHeader));
    const bool points = fromLittleEndian<std::int32_t>(head.data() + 32) == kPointShape;
    (points ? facts.points : facts.strings) = objects;
    facts.asterisks = table.asterisks;
    if (table.active != objects || table.records != objects)
        facts.fault = "the result has " + std::to_string(objects) + " objects and " +
                      std::to_string(table.active) + " records";
    return facts;
}

ResultFacts readSectionResult(const std::string& csv) {
    ResultFacts facts;
    InputFile file(csv);
    std::string_view line;
    for (std::int64_t number = 1; file.nextLine(line); ++number) {
        if (number <= 2) continue;  // name and heads of the columns
        ++facts.vertices;
        if (line.find('*') != std::string_view::npos) ++facts.asterisks;
    }
    if (!file.isOpen() || file.failed() || facts.vertices == 0)
        facts.fault = "a cross-section of the result is not whole";
    return facts;
}

}  // namespace vantelgis::batch
