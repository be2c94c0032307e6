#include <cstdint>

#include "model/sources.h"
#include "support/shape_bytes.h"

namespace vantelgis::fuzz {

namespace {

constexpr unsigned kMostNodes = 12;
constexpr std::size_t kWidth = 24;  // of both fields

struct ShpWriter {
    Choices& choices;
    LayerSource& source;
    bool textNames;
    std::string shp;
    std::string dbf;
    std::int32_t records = 0;
    std::string lastName;  // of the string before, for a record without one

    void add(const std::string& content) { shp += shpRecord(++records, content); }
};

Node node(ShpWriter& w) {
    const double x = coordinate(w.choices).value;
    return {x, coordinate(w.choices).value};
}

std::vector<Node> nodes(ShpWriter& w, unsigned count) {
    std::vector<Node> result(count);
    for (Node& place : result) place = node(w);
    return result;
}

std::string inField(const std::string& text, bool right) {
    const std::string blanks(kWidth - text.size(), ' ');
    return right ? blanks + text : text + blanks;
}

// Rows may be marked as deleted; they belong to no object.
void putRow(ShpWriter& w, const std::string& first, bool firstIsText, const std::string& second) {
    const bool leftAlone = w.choices.below(8) == 1;
    if (w.choices.below(8) == 1) w.dbf += "*" + std::string(2 * kWidth, '7');
    w.dbf += leftAlone ? '\0' : ' ';
    w.dbf += inField(first, !firstIsText) + inField(second, true);
}

// An empty field of text is an empty name, one of digits leaves the name of the string before.
std::string putNamedRow(ShpWriter& w, bool namesString) {
    std::string text = w.textNames ? name(w.choices) : std::to_string(w.choices.below(100));
    for (char& c : text)
        if (c == '"') c = '_';
    const bool empty = w.choices.below(4) == 1;
    putRow(w, empty ? "" : text, w.textNames, "1.5");
    text.erase(text.find_last_not_of(' ') + 1);
    if (empty) text = w.textNames ? "" : w.lastName;
    if (namesString) w.lastName = text;
    return text;
}

void putPolyline(ShpWriter& w) {
    const std::string name = putNamedRow(w, true);
    std::vector<std::vector<Node>> parts(w.choices.below(4) + 1);
    for (std::vector<Node>& part : parts) {
        part = nodes(w, w.choices.below(kMostNodes));
        w.source.lines.push_back({name, part});
    }
    w.shp += polylineRecord(++w.records, parts);
}

// Objects that no string comes from.
void putOther(ShpWriter& w) {
    putNamedRow(w, false);
    const std::string box(32, '\0');
    switch (w.choices.below(4)) {
        case 0: w.add(integers({0})); break;
        case 1: w.shp += pointRecord(++w.records, node(w)); break;
        case 2: w.add(integers({5}) + box + integers({1, 4, 0}) + std::string(64, '\1')); break;
        default: w.add(integers({8}) + box + integers({2}) + std::string(32, '\2'));
    }
}

void putResult(ShpWriter& w) {
    const Number size = elevation(w.choices);
    const Number angle = elevation(w.choices);
    w.source.results.push_back(
        {node(w), static_cast<float>(size.value), static_cast<float>(angle.value)});
    w.shp += pointRecord(++w.records, w.source.results.back().node);
    putRow(w, size.text, false, angle.text);
}

}  // namespace

LayerSource shpSource(Choices& choices, bool withResults) {
    constexpr int kFieldWidth = static_cast<int>(kWidth);
    LayerSource source;
    ShpWriter w{choices, source, !withResults && choices.maybe(), {}, {}, 0, {}};
    source.withAngles = choices.maybe();
    while (!choices.ended()) {
        const unsigned kind = choices.below(4);
        if (kind > 0 && withResults) {
            putResult(w);
        } else if (kind > 0) {
            putPolyline(w);
        } else if (!withResults) {
            putOther(w);
        }
    }
    const std::string header =
        dbfHeader(w.records, {{"NAME", w.textNames ? 'C' : 'N', kFieldWidth},
                              {source.withAngles ? "Angle" : "Flow", 'N', kFieldWidth, 2}});
    const std::string endMark(choices.below(2), '\x1A');
    source.files = {
        {"a.shp",
         shpHeader(static_cast<std::int32_t>(50 + w.shp.size() / 2), 3, {0, 0, 1, 1}) + w.shp},
        {"a.dbf", header + w.dbf + endMark}};
    return source;
}

}  // namespace vantelgis::fuzz
