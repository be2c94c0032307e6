#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "drivers/drivers.h"
#include "drivers/runs.h"
#include "model/layers.h"
#include "model/sources.h"

namespace vantelgis::fuzz {

namespace {

// What the program writes of an input is known beforehand, byte for byte; so it is of what it
// writes of that.

memory::Files withProjections(memory::Files files) {
    files["Header.mif"] = "CoordSys NonEarth\n";
    files["Header.prj"] = "PROJCS\n";
    return files;
}

// Runs the program, which has to finish.
memory::Files convert(memory::Files files, const Arguments& arguments) {
    Outcome outcome = outcomeOf(withProjections(std::move(files)), arguments);
    if (outcome.console.find("\nFinished.\n") == std::string::npos)
        stopAtDifference("A sound input is not converted", outcome, {});
    return std::move(outcome.files);
}

void requireFiles(const memory::Files& expected, const memory::Files& files) {
    memory::Files found;
    for (const auto& [name, bytes] : expected) {
        const auto file = files.find(name);
        if (file != files.end()) found.insert(*file);
    }
    if (found != expected) stopAtDifference("Other values come out", {"", expected}, {"", found});
}

memory::Files layerOf(const std::string& path, bool asShp, const std::vector<Feature>& features) {
    return asShp ? shpLayer(path, features) : mifLayer(path, features);
}

std::string archiveHead(const std::string& layer) {
    return "null -999\r\nmodel \"from " + layer + " gis\"\r\n\r\n";
}

std::string stringHead(const std::string& type, const std::string& name) {
    return "string " + type + " {\r\n  name      \"" + name +
           "\"\r\n  chainage  0\r\n  breakline line\r\n  colour    red\r\n  style     1\r\n\r\n"
           "  data {\r\n";
}
constexpr const char* kStringEnd = "  }\r\n}\r\n\r\n";

constexpr int kArchiveDecimals = 5;

std::string vertexText(const Node& node) {
    return "    " + fixed(node.x, 16, kArchiveDecimals) + fixed(node.y, 16, kArchiveDecimals);
}

void addPoint(std::vector<Feature>& features, const Node& node, float z, const std::string& type) {
    features.push_back({true, {node}, z, type});
}

// A layer, the 2d strings of its lines, and the layer of these. Their level is none, which isn't
// the null value that the archive speaks of.
void tripOfLines(Choices& choices) {
    constexpr float kLevel = -99999;
    const bool fromShp = choices.maybe();
    const bool toShp = choices.maybe();
    const LayerSource source = fromShp ? shpSource(choices, false) : mifSource(choices, false);
    std::string archive = archiveHead("a");
    std::vector<Feature> features;
    for (const NamedLine& line : source.lines) {
        archive += stringHead("2d", line.name);
        Feature polyline{false, {}, kLevel, "2d"};
        for (const Node& node : line.nodes) {
            archive += vertexText(node) + "\r\n";
            polyline.nodes.push_back(
                {reread(node.x, kArchiveDecimals), reread(node.y, kArchiveDecimals)});
        }
        archive += kStringEnd;
        if (polyline.nodes.size() > 1) features.push_back(polyline);
        for (const Node& node : polyline.nodes) addPoint(features, node, kLevel, "2d");
    }
    const memory::Files expected{{"b.12da", archive}};
    const std::string_view layer = fromShp ? "a.shp" : "a.mif";
    requireFiles(expected, convert(source.files, {"-b", "-out", "b.12da", layer}));
    requireFiles(layerOf("b.12da", toShp, features),
                 convert(expected, {"-b", toShp ? "-shp" : "-mif", "b.12da"}));
}

void tripOfResults(Choices& choices) {
    const bool fromShp = choices.maybe();
    const LayerSource source = fromShp ? shpSource(choices, true) : mifSource(choices, true);
    std::string archive = archiveHead("a") + "  // xy location of symbol\r\n  data_3d {\r\n";
    std::string symbols = "  symbol_data{\r\n";
    for (const Result& result : source.results) {
        const std::string size = fixed(static_cast<double>(result.size), 10, 4);
        archive += "    " + fixed(result.node.x, 20, 4) + " " + fixed(result.node.y, 20, 4) + " " +
                   size + "\r\n";
        symbols +=
            "    properties {\r\n      style     \"\"ARROW 30 BEARING\"\r\n"
            "      colour    red\r\n      size    " +
            size + "\r\n      rotation " + fixed(static_cast<double>(result.angle), 6, 2) +
            "\r\n      offset    0\r\n      raise     0\r\n    }\r\n";
    }
    archive += "  }\r\n";
    if (source.withAngles) archive += symbols + "  }\r\n";
    const std::string_view layer = fromShp ? "a.shp" : "a.mif";
    requireFiles({{"b.12da", archive}},
                 convert(source.files, {"-b", "-results", "-out", "b.12da", layer}));
}

// The elevations that the vertices of a line get from the points that lie on them.
struct Elevations {
    std::vector<bool> known;
    float lowest = 0;
    float highest = 0;
    bool any = false;
};

bool hasElevation(const ArchiveSource& source, float z) {
    return std::fabs(z - source.nullValue) > 0.001F;
}

float rereadElevation(float z) {
    constexpr int kRowDecimals = 3;
    return static_cast<float>(reread(static_cast<double>(z), kRowDecimals));
}

Elevations elevationsOf(const ArchiveSource& source, const Block& block) {
    Elevations result;
    for (const Vertex& vertex : block.vertices) {
        result.known.push_back(hasElevation(source, vertex.z));
        if (!result.known.back()) continue;
        const float z = rereadElevation(vertex.z);
        result.lowest = result.any ? std::min(result.lowest, z) : z;
        result.highest = result.any ? std::max(result.highest, z) : z;
        result.any = true;
    }
    return result;
}

float lineElevation(const ArchiveSource& source, const Block& block) {
    return block.flat || block.hip ? block.vertices[0].z : source.nullValue;
}

// What is interpolated lies between the lowest and the highest elevation of its line; where it
// does it is what has to be written.
std::string interpolated(const Elevations& elevations, const std::string& written) {
    const float slack =
        1e-4F + 1e-6F * std::max(std::fabs(elevations.lowest), std::fabs(elevations.highest));
    const float z = std::strtof(written.c_str(), nullptr);
    const bool between = z >= elevations.lowest - slack && z <= elevations.highest + slack;
    return between ? written : "(out of range)";
}

// The 3d string of a block's line, given the archive that was written so far and what was written
// behind it.
std::string stringOf(const ArchiveSource& source, const Block& block, int number, bool throughShp,
                     const std::string& written, std::size_t at) {
    constexpr std::size_t kElevationWidth = 12;
    char name[16];
    std::snprintf(name, sizeof name, "%08d", number);
    std::string text = stringHead("3d", name);
    const Elevations elevations = elevationsOf(source, block);
    for (std::size_t i = 0; i < block.vertices.size(); ++i) {
        const auto& [node, z] = block.vertices[i];
        text += vertexText(throughShp ? node : Node{reread(node.x, 6), reread(node.y, 6)});
        const std::size_t place = std::min(at + text.size(), written.size());
        const float own = elevations.any ? z : lineElevation(source, block);
        text += elevations.any && !elevations.known[i]
                    ? interpolated(elevations, written.substr(place, kElevationWidth))
                    : fixed(static_cast<double>(rereadElevation(own)), kElevationWidth, 4);
        text += "\r\n";
    }
    return text + kStringEnd;
}

std::vector<Feature> featuresOf(const ArchiveSource& source, bool withHip) {
    std::vector<Feature> features;
    for (const Block& block : source.blocks) {
        if (block.hip && !withHip) continue;
        if (block.vertices.size() > 1) {
            Feature line{false, {}, lineElevation(source, block), block.type};
            for (const Vertex& vertex : block.vertices) line.nodes.push_back(vertex.node);
            features.push_back(line);
        }
        for (const Vertex& vertex : block.vertices)
            if (hasElevation(source, vertex.z))
                addPoint(features, vertex.node, vertex.z, block.type);
    }
    return features;
}

// An archive, the layer of its strings, and the 3d strings of its lines and points.
void tripOfStrings(Choices& choices) {
    const bool withHip = choices.maybe();
    const bool throughShp = choices.maybe();
    const ArchiveSource source = archiveSource(choices);
    Arguments arguments{"-b", throughShp ? "-shp" : "-mif", "a.12da"};
    if (withHip) arguments.emplace_back("-hip");
    const memory::Files layer = convert({{"a.12da", source.text}}, arguments);
    requireFiles(layerOf("a.12da", throughShp, featuresOf(source, withHip)), layer);

    arguments = {"-b", "-zln", "-out", "b.12da"};
    if (throughShp) arguments.insert(arguments.end(), {"a.12da_P.shp", "a.12da_L.shp"});
    if (!throughShp) arguments.emplace_back("a.12da.mif");
    const memory::Files files = convert(layer, arguments);
    const auto written = files.find("b.12da");
    std::string archive = archiveHead(throughShp ? "a 12da L" : "a 12da");
    int number = 0;
    for (const Block& block : source.blocks) {
        if (block.vertices.size() < 2 || (block.hip && !withHip)) continue;
        archive += stringOf(source, block, ++number, throughShp, written->second, archive.size());
    }
    requireFiles({{"b.12da", archive}}, files);
}

}  // namespace

void runRoundTrip(std::string_view bytes) {
    Choices choices{bytes};
    switch (choices.below(4)) {
        case 0: return tripOfResults(choices);
        case 1: return tripOfLines(choices);
        default: return tripOfStrings(choices);
    }
}

}  // namespace vantelgis::fuzz
