#include "model/sources.h"

namespace vantelgis::fuzz {

namespace {

constexpr unsigned kMostNodes = 12;

struct MifWriter {
    Choices& choices;
    LayerSource& source;
    std::string lineEnd;
    std::string mif;
    std::string mid;
    std::string lastName;  // of the string before, for a record without one

    void line(const std::string& text) { mif += text + lineEnd; }
};

// In any case and with blanks or a tab before it.
std::string keyword(MifWriter& w, std::string text) {
    constexpr std::string_view kIndents[] = {"", "", " ", "\t", "   "};
    const bool lower = w.choices.below(4) == 1;
    for (char& c : text)
        if (lower && c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    return std::string(w.choices.oneOf(kIndents)) + text;
}

std::string pair(MifWriter& w, Node& node) {
    constexpr std::string_view kGaps[] = {" ", "  ", ",", ", ", " , "};
    const Number x = coordinate(w.choices);
    const Number y = coordinate(w.choices);
    node = {x.value, y.value};
    return x.text + std::string(w.choices.oneOf(kGaps)) + y.text;
}

// A node for each line, or for two.
std::vector<Node> putNodes(MifWriter& w, unsigned count) {
    std::vector<Node> nodes(count);
    for (Node& node : nodes) {
        std::string text = pair(w, node);
        const std::size_t gap = text.find(' ');
        if (gap != std::string::npos && w.choices.below(8) == 1) text.replace(gap, 1, w.lineEnd);
        w.line(text);
    }
    return nodes;
}

// The record of an object, with the name that its strings get. One that leaves it out has that of
// the string before.
std::string putRecord(MifWriter& w) {
    std::string text = name(w.choices);
    std::string item;
    const char quote = w.choices.maybe() ? '\'' : '"';
    switch (w.choices.below(3)) {
        case 0: text = w.lastName; break;
        case 1:
            text = "N" + std::to_string(w.choices.below(100));
            item = text;
            break;
        default:
            for (const char c : text) item += c == quote ? std::string(2, c) : std::string(1, c);
            item = quote + item + quote;
            text.erase(text.find_last_not_of(' ') + 1);
    }
    w.mid += item + ",1.5" + w.lineEnd;
    return text;
}

void addLine(MifWriter& w, const std::string& name, std::vector<Node> nodes) {
    w.lastName = name;
    w.source.lines.push_back({name, std::move(nodes)});
}

void putLine(MifWriter& w, const std::string& name) {
    std::vector<Node> ends(2);
    const std::string first = pair(w, ends[0]);
    w.line(keyword(w, "Line ") + first + " " + pair(w, ends[1]));
    addLine(w, name, std::move(ends));
}

void putNodes(MifWriter& w, const std::string& word, const std::string& name) {
    const unsigned n = w.choices.below(kMostNodes);
    w.line(word + std::to_string(n));
    addLine(w, name, putNodes(w, n));
}

void putLineLike(MifWriter& w) {
    const std::string name = putRecord(w);
    const unsigned kind = w.choices.below(3);
    if (kind == 0) return putLine(w, name);
    if (kind == 1) return putNodes(w, keyword(w, "Pline "), name);
    const unsigned parts = w.choices.below(4);
    w.line(keyword(w, "Pline Multiple ") + std::to_string(parts));
    for (unsigned part = 0; part < parts; ++part) putNodes(w, "  ", name);
}

// Objects that no string comes from.
void putOther(MifWriter& w) {
    constexpr std::string_view kObjects[] = {
        "None", "Rect 0 0 1 1", "RoundRect 0 0 1 1", "Ellipse 0 0 1 1", "Arc 0 0 1 1", "Point 3 4"};
    Node node;
    putRecord(w);
    switch (w.choices.below(4)) {
        case 0: w.line(keyword(w, std::string(w.choices.oneOf(kObjects)))); break;
        case 1:
            w.line(keyword(w, "Text"));
            w.line("  \"Pline 2\"");
            w.line("  0 0 1 1");
            break;
        case 2:
            w.line(keyword(w, "Region 1"));
            w.line("  4");
            putNodes(w, 4);
            w.line("  Center " + pair(w, node));
            break;
        default: w.line(keyword(w, "MultiPoint 2")); putNodes(w, 2);
    }
}

void putResult(MifWriter& w) {
    Result result;
    const std::string place = pair(w, result.node);
    w.line(keyword(w, "Point") + (w.choices.maybe() ? " " : w.lineEnd) + place);
    const Number size = elevation(w.choices);
    const Number angle = elevation(w.choices);
    result.size = static_cast<float>(size.value);
    result.angle = static_cast<float>(angle.value);
    w.mid += size.text + "," + angle.text + ",\"x\"" + w.lineEnd;
    w.source.results.push_back(result);
}

void putClause(MifWriter& w) {
    constexpr std::string_view kClauses[] = {"    Pen (1,2,0)", "    Smooth", "",
                                             "    Symbol (1,2,3)"};
    if (w.choices.maybe()) w.line(std::string(w.choices.oneOf(kClauses)));
}

void putHeader(MifWriter& w, bool withResults) {
    w.line("Version 300");
    w.line("Delimiter \",\"");
    w.source.withAngles = w.choices.maybe();
    if (w.choices.maybe()) w.line("CoordSys Earth Projection 1");
    w.line(w.choices.maybe() ? "COLUMNS 2" : "Columns 2");
    w.line(withResults ? "  Value Float" : "  Name Char(30)");
    w.line(w.source.withAngles ? "  FlowAngle Decimal(8,2)" : "  Flow Float");
    w.line("Data");
}

}  // namespace

LayerSource mifSource(Choices& choices, bool withResults) {
    LayerSource source;
    MifWriter w{choices, source, choices.maybe() ? "\r\n" : "\n", {}, {}, {}};
    putHeader(w, withResults);
    while (!choices.ended()) {
        const unsigned kind = choices.below(4);
        if (kind > 0 && withResults) {
            putResult(w);
        } else if (kind > 0) {
            putLineLike(w);
        } else if (!withResults) {
            putOther(w);
        }
        putClause(w);
    }
    source.files = {{"a.mif", w.mif}, {"a.mid", w.mid}};
    return source;
}

}  // namespace vantelgis::fuzz
