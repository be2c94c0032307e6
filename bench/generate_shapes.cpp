// The shapefile of the benchmarks.

#include <bit>

#include "generator.h"
#include "run/byte_order.h"

namespace bench {

namespace {

template <typename Number>
std::string bytes(Number value, std::endian order) {
    const auto array = vantelgis::bytesOf(value, order);
    return {array.data(), array.size()};
}

std::string big(std::size_t value) {
    return bytes(static_cast<std::int32_t>(value), std::endian::big);
}

std::string little(std::int64_t value) {
    return bytes(static_cast<std::int32_t>(value), std::endian::little);
}

std::string metres(std::int64_t micro) {
    return bytes(static_cast<double>(micro) / static_cast<double>(kMetre), std::endian::little);
}

// A main header for a file of so many bytes; nobody here looks at its box.
std::string header(std::size_t size) {
    return big(9994) + std::string(20, '\0') + big(size / 2) + little(1000) + little(3) +
           std::string(64, '\0');
}

std::string fieldOf(std::string name, char type, char width) {
    name.resize(11, '\0');
    return name + type + std::string(4, '\0') + width + std::string(15, '\0');
}

std::string tableHeader(std::int64_t records) {
    constexpr char kSizes[] = {97, 0, 33, 0};  // of the header and of a record
    return std::string("\3\x7c\5\1", 4) + little(records) + std::string(kSizes, 4) +
           std::string(20, '\0') + fieldOf("ID", 'N', 8) + fieldOf("NAME", 'C', 24) + '\r';
}

std::string polyline(Random& random, std::int64_t nodes) {
    std::string points;
    Place place = somewhere(random);
    for (std::int64_t node = 0; node < nodes; ++node) {
        points += metres(place.x) + metres(place.y);
        step(random, place);
    }
    return little(3) + std::string(32, '\0') + little(1) + little(nodes) + little(0) + points;
}

}  // namespace

std::int64_t shapefileLines(const std::string& folder) {
    constexpr std::int64_t kLines = 100'000;
    Random random;
    std::string shp = header(0);
    std::string shx = header(100 + 8 * kLines);
    std::string dbf = tableHeader(kLines);
    std::int64_t vertices = 0;
    for (std::int64_t line = 1; line <= kLines; ++line) {
        const std::int64_t nodes = 20 + random.below(41);
        vertices += nodes;
        const std::string content = polyline(random, nodes);
        shx += big(shp.size() / 2) + big(content.size() / 2);
        shp += big(static_cast<std::size_t>(line)) + big(content.size() / 2) + content;
        std::string id = std::to_string(line);
        std::string name = "ridge " + id;
        id.insert(0, 8 - id.size(), ' ');
        name.resize(24, ' ');
        dbf.append(" ").append(id).append(name);
    }
    shp.replace(24, 4, big(shp.size() / 2));
    Output(folder + "/lines.shp") << shp;
    Output(folder + "/lines.shx") << shx;
    Output(folder + "/lines.dbf") << dbf << "\x1a";
    Output(folder + "/Header.prj") << "PROJCS[\"GDA2020_MGA_Zone_56\"]\n";
    return vertices;
}

}  // namespace bench
