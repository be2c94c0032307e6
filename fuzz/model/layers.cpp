#include "model/layers.h"

#include <algorithm>
#include <cstdint>

#include "model/choices.h"
#include "support/shape_bytes.h"

namespace vantelgis::fuzz {

namespace {

constexpr int kCoordinateDecimals = 6;

std::string coordinates(const Node& node) {
    return fixed(node.x, 16, kCoordinateDecimals) + fixed(node.y, 16, kCoordinateDecimals) + "\r\n";
}

std::string elevationText(const Feature& feature) {
    return fixed(static_cast<double>(feature.z), 16, 3);
}

// The smallest box around all nodes.
struct Box {
    double values[4] = {9e29F, 9e29F, -9e29F, -9e29F};
    void widen(const Node& node) {
        values[0] = std::min(values[0], node.x);
        values[1] = std::min(values[1], node.y);
        values[2] = std::max(values[2], node.x);
        values[3] = std::max(values[3], node.y);
    }
    [[nodiscard]] std::string bytes() const {
        return doubles({values[0], values[1], values[2], values[3]});
    }
};

std::string inColumns(std::string_view text, std::size_t width, bool right) {
    const std::string blanks(width - text.size(), ' ');
    return right ? blanks + std::string(text) : std::string(text) + blanks;
}

std::string withoutBlanks(const std::string& text) {
    return text.substr(text.find_first_not_of(' '));
}

std::string tableOf(const std::vector<Feature>& features) {
    std::string bytes =
        dbfHeader(static_cast<std::int32_t>(features.size()), {{"Z", 'N', 16, 5},
                                                               {"dZ", 'N', 16, 5},
                                                               {"Width", 'N', 16, 5},
                                                               {"Options", 'C', 20},
                                                               {"String_Typ", 'C', 20}});
    bytes.replace(1, 3, "\x7C\5\6");  // the platform's date
    for (const Feature& feature : features) {
        bytes += " " + inColumns(withoutBlanks(elevationText(feature)), 16, true) +
                 inColumns("0.000", 16, true) + inColumns("0.000", 16, true) +
                 inColumns("", 20, false) + inColumns(feature.type, 20, false);
    }
    return bytes + '\x1A';
}

// The .shp, .shx, .dbf and .prj of one family.
memory::Files shpSet(const std::string& path, std::int32_t type,
                     const std::vector<Feature>& features) {
    std::string records;
    std::string index;
    Box box;
    for (const Feature& feature : features) {
        const auto offset = static_cast<std::int32_t>(50 + records.size() / 2);
        const auto number = static_cast<std::int32_t>(index.size() / 8 + 1);
        const std::string record = feature.isPoint ? pointRecord(number, feature.nodes[0])
                                                   : polylineRecord(number, {&feature.nodes, 1});
        index += big(offset) + record.substr(4, 4);
        records += record;
        for (const Node& node : feature.nodes) box.widen(node);
    }
    const auto header = [&](std::size_t bytes) {
        const auto words = static_cast<std::int32_t>(50 + bytes / 2);
        std::string text = shpHeader(words, type, {0, 0, -1, -1});
        if (!features.empty()) text.replace(36, 32, box.bytes());
        return text;
    };
    return {{path + ".shp", header(records.size()) + records},
            {path + ".shx", header(index.size()) + index},
            {path + ".dbf", tableOf(features)},
            {path + ".prj", "PROJCS\r\n"}};
}

}  // namespace

memory::Files mifLayer(const std::string& path, std::span<const Feature> features) {
    std::string mif =
        "Version 300\r\nCharset \"WindowsLatin1\"\r\nDelimiter \",\"\r\nCoordSys NonEarth\r\n"
        "Columns 5\r\n  Z Float\r\n  dZ Float\r\n  Width Float\r\n  Options Char(20)\r\n"
        "  String_Type Char(20)\r\nData\r\n\r\n";
    std::string mid;
    for (const Feature& feature : features) {
        if (feature.isPoint) {
            mif += "Point ";
        } else {
            mif += "Pline " + std::to_string(feature.nodes.size()) + "\r\n";
        }
        for (const Node& node : feature.nodes) mif += coordinates(node);
        mid += elevationText(feature) + ",   0.000,   0.000,\"\",\"" + feature.type + "\"\r\n";
    }
    return {{path + ".mif", mif}, {path + ".mid", mid}};
}

memory::Files shpLayer(const std::string& path, std::span<const Feature> features) {
    std::vector<Feature> points;
    std::vector<Feature> lines;
    for (const Feature& feature : features) (feature.isPoint ? points : lines).push_back(feature);
    memory::Files files = shpSet(path + "_P", 1, points);
    files.merge(shpSet(path + "_L", 3, lines));
    return files;
}

std::string polylineRecord(std::int32_t number, std::span<const std::vector<Node>> parts) {
    Box box;
    std::string starts;
    std::string points;
    for (const std::vector<Node>& part : parts) {
        starts += integers({static_cast<std::int32_t>(points.size() / 16)});
        for (const Node& node : part) {
            points += doubles({node.x, node.y});
            box.widen(node);
        }
    }
    return shpRecord(number, integers({3}) + box.bytes() +
                                 integers({static_cast<std::int32_t>(parts.size()),
                                           static_cast<std::int32_t>(points.size() / 16)}) +
                                 starts + points);
}

std::string pointRecord(std::int32_t number, const Node& node) {
    return shpRecord(number, integers({1}) + doubles({node.x, node.y}));
}

}  // namespace vantelgis::fuzz
