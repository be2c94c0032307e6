// Layers of polylines.

#include "generate/mif.h"
#include "generate/places.h"
#include "generate/recipes.h"
#include "generate/shapefile.h"

namespace bench {

namespace {

// How long a line is, and what its record holds.
struct LineKind {
    std::int64_t fewest, most;  // nodes
    bool longRecord;            // ten attributes, otherwise two
};
constexpr LineKind kLong = {20, 60, false};
constexpr LineKind kShort = {4, 4, true};

std::int64_t nodeCount(Random& random, const LineKind& kind) {
    return kind.fewest + random.below(kind.most - kind.fewest + 1);
}

std::int64_t writeMifLines(const std::string& folder, const LineKind& kind, std::int64_t wanted) {
    Random random;
    Output mif(folder + "/lines.mif"), mid(folder + "/lines.mid");
    if (kind.longRecord) {
        putMifHead(mif, 10,
                   "  ID Integer\n  NAME Char(24)\n  KIND Char(12)\n  SURVEYOR Char(16)\n"
                   "  SURVEYED Date\n  LEVEL Decimal(10,3)\n  WIDTH Float\n  STATE Char(8)\n"
                   "  SHEET Integer\n  REMARK Char(40)\n");
    } else {
        putMifHead(mif, 2, "  ID Integer\n  NAME Char(24)\n");
    }
    std::int64_t vertices = 0;
    for (std::int64_t line = 1; vertices < wanted; ++line) {
        const std::int64_t nodes = nodeCount(random, kind);
        vertices += nodes;
        mif << "Pline " << nodes << "\n";
        Place place = somewhere(random);
        for (std::int64_t node = 0; node < nodes; ++node) {
            mif << place;
            step(random, place);
        }
        mif << "    Pen (1,2,0)\n";
        mid << line << ",\"ridge " << line << "\"";
        if (kind.longRecord) {
            mid << ",\"bank, top\",\"party " << line % 7 << "\",20240501,";
            mid.decimal(random.below(90'000), 3) << ",";
            mid.decimal(random.below(900), 2)
                << ",\"final\"," << line / 100 << ",\"left as found on the day\"";
        }
        mid << "\n";
    }
    return vertices;
}

std::string polyline(Random& random, std::int64_t nodes) {
    std::string content = std::string(32, '\0') + little(std::int32_t{1}) +
                          little(static_cast<std::int32_t>(nodes)) + little(std::int32_t{0});
    Place place = somewhere(random);
    for (std::int64_t node = 0; node < nodes; ++node) {
        content += littleMetres(place);
        step(random, place);
    }
    return content;
}

std::string row(Random& random, const LineKind& kind, std::int64_t line) {
    std::string idAndName =
        numberColumns(line, 0, 8) + textColumns("ridge " + std::to_string(line), 24);
    if (!kind.longRecord) return idAndName;
    return idAndName + textColumns("bank, top", 12) +
           textColumns("party " + std::to_string(line % 7), 16) + "20240501" +
           numberColumns(random.below(90'000), 3, 10) + numberColumns(random.below(900), 2, 16) +
           textColumns("final", 8) + numberColumns(line / 100, 0, 8) +
           textColumns("left as found on the day", 40);
}

std::int64_t writeShpLines(const std::string& folder, const LineKind& kind, std::int64_t wanted) {
    constexpr std::int32_t kPolyLine = 3;
    std::vector<TableField> fields = {{"ID", 'N', 8, 0}, {"NAME", 'C', 24, 0}};
    if (kind.longRecord)
        fields.insert(fields.end(), {{"KIND", 'C', 12, 0},
                                     {"SURVEYOR", 'C', 16, 0},
                                     {"SURVEYED", 'D', 8, 0},
                                     {"LEVEL", 'N', 10, 3},
                                     {"WIDTH", 'N', 16, 2},
                                     {"STATE", 'C', 8, 0},
                                     {"SHEET", 'N', 8, 0},
                                     {"REMARK", 'C', 40, 0}});
    Random random;
    Shapefile shapefile(kPolyLine, fields);
    std::int64_t vertices = 0;
    for (std::int64_t line = 1; vertices < wanted; ++line) {
        const std::int64_t nodes = nodeCount(random, kind);
        vertices += nodes;
        const std::string content = polyline(random, nodes);
        shapefile.add(content, row(random, kind, line));
    }
    shapefile.write(folder, "lines");
    return vertices;
}

}  // namespace

std::int64_t longMifLines(const std::string& folder, std::int64_t vertices) {
    return writeMifLines(folder, kLong, vertices);
}
std::int64_t shortMifLines(const std::string& folder, std::int64_t vertices) {
    return writeMifLines(folder, kShort, vertices);
}
std::int64_t longShpLines(const std::string& folder, std::int64_t vertices) {
    return writeShpLines(folder, kLong, vertices);
}
std::int64_t shortShpLines(const std::string& folder, std::int64_t vertices) {
    return writeShpLines(folder, kShort, vertices);
}

}  // namespace bench
