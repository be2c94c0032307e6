#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "bare/archive_strings.h"
#include "bare/fields.h"
#include "bare/loops.h"
#include "bare/shapefile.h"

namespace bench {

namespace {

constexpr std::size_t kPoint = 16;

// A .shp with its .shx and .dbf, without their heads.
class Family {
  public:
    Family(const std::string& name, std::int32_t shapeType)
        : shapeType_(shapeType), shp_(name + ".shp"), shx_(name + ".shx"), dbf_(name + ".dbf") {}

    // The start of a record of so many 16-bit words; its content is put behind it.
    char* beginRecord(std::int32_t words) {
        char* p = putBig(shx_.room(), offset_);
        shx_.done(putBig(p, words));
        offset_ += words + 4;
        p = putBig(shp_.room(), ++number_);
        return putLittle(putBig(p, words), shapeType_);
    }
    Output& shp() { return shp_; }

    void putRow(float z, std::string_view rest) {
        char* p = putText(dbf_.room(), " ");
        dbf_.done(putText(putFixed<16, 3>(p, static_cast<double>(z)), rest));
    }

  private:
    std::int32_t shapeType_;
    Output shp_, shx_, dbf_;
    std::int32_t number_ = 0;
    std::int32_t offset_ = 50;  // the head in 16-bit words
};

// The points of a string as a shapefile holds them, and their box.
struct Nodes {
    std::vector<char> bytes;
    double xMin, yMin, xMax, yMax;

    void clear() {
        bytes.clear();
        xMin = yMin = std::numeric_limits<double>::max();
        xMax = yMax = std::numeric_limits<double>::lowest();
    }
    void add(double x, double y) {
        char point[kPoint];
        putLittle(putLittle(point, x), y);
        bytes.insert(bytes.end(), point, point + kPoint);
        xMin = std::min(xMin, x);
        yMin = std::min(yMin, y);
        xMax = std::max(xMax, x);
        yMax = std::max(yMax, y);
    }
};

void putLine(Family& lines, const Nodes& nodes) {
    const auto count = static_cast<std::int32_t>(nodes.bytes.size() / kPoint);
    char* p = lines.beginRecord(8 * count + 24);
    for (const double corner : {nodes.xMin, nodes.yMin, nodes.xMax, nodes.yMax})
        p = putLittle(p, corner);
    for (const std::int32_t number : {1, count, 0}) p = putLittle(p, number);
    lines.shp().done(p);
    lines.shp().put(nodes.bytes.data(), nodes.bytes.size());
}

void putPoints(Family& points, const Nodes& nodes, const std::vector<bool>& elevated) {
    for (std::size_t i = 0; i < elevated.size(); ++i) {
        if (!elevated[i]) continue;
        char* p = points.beginRecord(10);
        points.shp().done(putText(p, {nodes.bytes.data() + i * kPoint, kPoint}));
    }
}

std::string restOfRow(std::string_view type) {
    const std::string zero = "           0.000";
    return zero + zero + std::string(20, ' ') + std::string(type) +
           std::string(20 - type.size(), ' ');
}

}  // namespace

void archiveToShp(const std::string& in, const std::string& out) {
    constexpr std::int32_t kPolyLineType = 3;
    constexpr std::int32_t kPointType = 1;
    DataBlocks blocks(in + ".12da");
    Family lines(out + "_L", kPolyLineType), points(out + "_P", kPointType);
    Nodes nodes;
    std::vector<bool> elevated;
    std::string type = "-";  // that of the rest
    std::string rest;
    while (blocks.next()) {
        if (blocks.type() != type) {
            type = blocks.type();
            rest = restOfRow(type);
        }
        lines.putRow(blocks.flat ? blocks.level : kNull, rest);
        nodes.clear();
        elevated.clear();
        double x;
        double y;
        float z;
        while (blocks.vertex(x, y, z)) {
            nodes.add(x, y);
            elevated.push_back(std::fabs(z - kNull) > 0.001F);
            if (elevated.back()) points.putRow(z, rest);
        }
        putLine(lines, nodes);
        putPoints(points, nodes, elevated);
    }
}

}  // namespace bench
