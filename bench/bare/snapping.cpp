#include <cmath>
#include <vector>

#include "bare/fields.h"
#include "bare/files.h"
#include "bare/loops.h"
#include "bare/numbers.h"
#include "bare/point_grid.h"

namespace bench {

namespace {

struct Vertex {
    double x, y;
    float z;
    bool snapped;
};
using Line = std::vector<Vertex>;

float lengthTo(const Line& line, std::size_t i) {
    const auto dx = static_cast<float>(line[i].x - line[i - 1].x);
    const auto dy = static_cast<float>(line[i].y - line[i - 1].y);
    if (std::fabs(dx) < 1e-6F && std::fabs(dy) < 1e-6F) return 0;
    return std::sqrt(dx * dx + dy * dy);
}

// Elevations of the vertices between two snapped ones; true when an end of the line is not snapped.
bool interpolate(Line& line) {
    const std::size_t last = line.size() - 1;
    bool dangling = false;
    for (std::size_t first = 1, end = 0; first <= last; first = end + 1) {
        float length = 0;
        for (end = first; end < last && !line[end].snapped; ++end) length += lengthTo(line, end);
        length += lengthTo(line, end);
        if (first == 1 && !line[0].snapped) {
            line[0].z = line[end].z;
            dangling = true;
        }
        if (end == last && !line[last].snapped) {
            line[last].z = line[first - 1].z;
            dangling = true;
        }
        const float z1 = line[first - 1].z;
        const float z2 = line[end].z;
        float done = 0;
        for (std::size_t k = first; k < end; ++k) {
            done += lengthTo(line, k);
            line[k].z = length == 0 ? (z1 + z2) * 0.5F : z1 + (done / length) * (z2 - z1);
        }
    }
    return dangling;
}

void putString(Output& archive, const Line& line, std::uint64_t number) {
    constexpr int kNameDigits = 8;
    char* p = putText(archive.room(), "string 3d {\r\n  name      \"");
    putDigitsBefore<kNameDigits>(p + kNameDigits, number);
    archive.done(putText(p + kNameDigits,
                         "\"\r\n  chainage  0\r\n  breakline line\r\n  colour    red\r\n"
                         "  style     1\r\n\r\n  data {\r\n"));
    for (const Vertex& vertex : line) {
        p = putText(archive.room(), "    ");
        p = putFixed<16, 5>(p, vertex.x);
        p = putFixed<16, 5>(p, vertex.y);
        archive.done(putText(putFixed<12, 4>(p, static_cast<double>(vertex.z)), "\r\n"));
    }
    archive.done(putText(archive.room(), "  }\r\n}\r\n\r\n"));
}

// A layer of lines or points with one attribute.
struct SideLayer {
    explicit SideLayer(const std::string& name) : mif(name + ".mif"), mid(name + ".mid") {}

    void putPlace(double x, double y) {
        char* p = putFixed<16, 6>(mif.room(), x);
        mif.done(putText(putFixed<16, 6>(p, y), "\r\n"));
    }

    Output mif, mid;
};

void readPoints(const std::string& name, PointGrid& grid) {
    Input mif(name + ".mif"), mid(name + ".mid");
    while (const char* line = mif.line()) {
        const char* row = nullptr;
        if (std::memcmp(line, "Point ", 6) == 0) row = mid.line();
        if (row == nullptr) {
            mif.leave(line);
            continue;
        }
        GridPoint point = {};
        line = readReal(line + 6, point.x);
        mif.leaveAtEnd(readReal(line + 1, point.y));
        mid.leave(readReal(row, point.z));
        grid.points.push_back(point);
    }
    grid.build();
}

// Gives the next line its vertices, all at its own elevation; false when there is none.
bool readLine(Input& mif, Input& mid, Line& vertices, float& elevation) {
    const char* line = mif.line();
    while (line != nullptr && std::memcmp(line, "Pline ", 6) != 0) {
        mif.leave(line);
        line = mif.line();
    }
    const char* row = mid.line();
    if (line == nullptr || row == nullptr) return false;
    std::int32_t nodes = 0;
    mif.leaveAtEnd(readCount(line + 6, nodes));
    mid.leave(readReal(row, elevation));
    vertices.clear();
    for (; nodes > 0 && (line = mif.line()) != nullptr; --nodes) {
        Vertex vertex = {0, 0, elevation, false};
        line = readReal(line, vertex.x);
        mif.leaveAtEnd(readReal(line + 1, vertex.y));
        vertices.push_back(vertex);
    }
    return true;
}

bool snapTo(PointGrid& grid, Line& line) {
    bool any = false;
    for (Vertex& vertex : line) {
        GridPoint* point = grid.find(vertex.x, vertex.y);
        if (point == nullptr) continue;
        point->used = vertex.snapped = any = true;
        vertex.z = point->z;
    }
    return any;
}

void putDangling(SideLayer& dangles, const Line& line, float elevation) {
    char* p = putText(dangles.mif.room(), "Pline ");
    dangles.mif.done(putText(putText(p, std::to_string(line.size())), "\r\n"));
    for (const Vertex& vertex : line) dangles.putPlace(vertex.x, vertex.y);
    p = putFixed<16, 3>(dangles.mid.room(), static_cast<double>(elevation));
    dangles.mid.done(putText(p, "\r\n"));
}

void putUnused(const std::string& name, const PointGrid& grid) {
    SideLayer layer(name);
    for (const GridPoint& point : grid.points) {
        if (point.used) continue;
        layer.mif.done(putText(layer.mif.room(), "Point "));
        layer.putPlace(point.x, point.y);
        char* p = putFixed<12, 4>(layer.mid.room(), static_cast<double>(point.z));
        layer.mid.done(putText(p, "\r\n"));
    }
}

}  // namespace

void snapping(const std::string& in, const std::string& out) {
    PointGrid grid;
    readPoints(in + "points", grid);
    Input mif(in + "lines.mif"), mid(in + "lines.mid");
    Output archive(out + ".12da");
    SideLayer dangles(out + "_dangles");
    Line line;
    float elevation = 0;
    for (std::uint64_t number = 1; readLine(mif, mid, line, elevation); ++number) {
        if (snapTo(grid, line) && interpolate(line)) putDangling(dangles, line, elevation);
        putString(archive, line, number);
    }
    putUnused(out + "_unsnapped_points", grid);
}

}  // namespace bench
