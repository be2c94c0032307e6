#include <cstdio>
#include <cstdlib>

#include "model/sources.h"

namespace vantelgis::fuzz {

namespace {

constexpr unsigned kMostVertices = 12;
constexpr float kNoElevation = -99999;

struct ArchiveWriter {
    Choices& choices;
    ArchiveSource& source;
    std::string lineEnd;
    bool nullWords = false;
    bool hexadecimal = false;
    std::int32_t nextPlace = 0;  // in quarters of a unit
    std::int32_t step = 1;

    void line(const std::string& text) { source.text += text + lineEnd; }
};

// A string's words on its header line, and what they say of a plain `data` block.
struct Kind {
    const char* type;
    bool flat;
    bool three;
};
constexpr Kind kKinds[] = {
    {"2d", true, false},          {"3d", false, true},         {"4d", false, true},
    {"face", false, true},        {"drainage", false, true},   {"interface", false, true},
    {"alignment", true, false},   {"pipeline", true, true},    {"super", false, false},
    {"3d polyline", false, true}, {"2d polyline", true, true}, {"text", false, false},
};

std::string hexadecimal(double value) {
    char text[64];
    std::snprintf(text, sizeof text, "%a", value);
    return text;
}

std::string spelled(const ArchiveWriter& w, const Number& number) {
    return w.hexadecimal ? hexadecimal(number.value) : number.text;
}

// Lines that count for nothing, wherever they stand.
void putNoise(ArchiveWriter& w) {
    constexpr std::string_view kNoise[] = {"", "// string 3d {", "   ", "  // }"};
    if (w.choices.below(4) == 1) w.line(std::string(w.choices.oneOf(kNoise)));
}

Number nextX(ArchiveWriter& w) {
    char text[32];
    const double value = (w.nextPlace += w.step) / 4.0;
    std::snprintf(text, sizeof text, "%.2f", value);
    return {text, value};
}

// What stands in the place of an elevation, and what it means.
std::string putElevation(ArchiveWriter& w, float& z) {
    if (w.choices.below(4) != 1) {
        const Number number = elevation(w.choices);
        z = static_cast<float>(number.value);
        return spelled(w, number);
    }
    z = w.source.nullValue;
    if (!w.nullWords) return std::to_string(static_cast<int>(z));
    return w.choices.maybe() ? "null" : "NULL";
}

void putVertices(ArchiveWriter& w, Block& block, bool three, float level) {
    constexpr std::string_view kGaps[] = {" ", "   ", ",", " , "};
    constexpr std::string_view kTails[] = {"", "", " // } null", "  "};
    for (unsigned n = w.choices.below(kMostVertices); n > 0; --n) {
        putNoise(w);
        const Number x = nextX(w);
        const Number y = coordinate(w.choices);
        Vertex vertex{{x.value, y.value}, level};
        const std::string gap(w.choices.oneOf(kGaps));
        std::string text = "    " + spelled(w, x) + gap + spelled(w, y);
        if (three) text += gap + putElevation(w, vertex.z);
        w.line(text + std::string(w.choices.oneOf(kTails)));
        block.vertices.push_back(vertex);
    }
}

// False for a block of no known form, which is passed over.
bool putBlock(ArchiveWriter& w, const Kind& kind, float level) {
    constexpr std::string_view kWords[] = {"data {", "data_2d {", "data_3d {", "hipdata {"};
    const bool isSuper = std::string_view(kind.type) == "super";
    const unsigned word = isSuper ? w.choices.below(4) : 0;
    Block block{kind.type, kind.flat || word == 1, word == 3, {}};
    const bool three = kind.three || word >= 2;
    w.line("  " + std::string(kWords[word]));
    putVertices(w, block, three, level);
    w.line("  }");
    if (!three && !block.flat) return false;
    w.source.blocks.push_back(block);
    return true;
}

// A polyline is closed unless its string says otherwise.
void putClosing(ArchiveWriter& w, bool& closed) {
    constexpr std::string_view kWords[] = {"closed 1", "closed yes", "CLOSED true", "closed 0",
                                           "closed no"};
    const unsigned word = w.choices.below(6);
    closed = word < 3 || word == 5;
    if (word < 5) w.line("  " + std::string(kWords[word]));
}

float putLevel(ArchiveWriter& w) {
    if (w.choices.maybe()) return kNoElevation;
    const Number number = elevation(w.choices);
    w.line("  z " + spelled(w, number));
    return static_cast<float>(number.value);
}

void closeLast(ArchiveWriter& w) {
    std::vector<Vertex>& vertices = w.source.blocks.back().vertices;
    // Without a first vertex it is one at the origin.
    vertices.push_back(vertices.empty() ? Vertex{{0, 0}, w.source.nullValue} : vertices.front());
}

void putString(ArchiveWriter& w) {
    const Kind& kind = w.choices.oneOf(kKinds);
    const bool isSuper = std::string_view(kind.type) == "super";
    bool closed = false;
    w.line("string " + std::string(kind.type) + " {");
    putNoise(w);
    w.line("  name \"" + name(w.choices) + "\"");
    w.line("  colour red");
    const float level = putLevel(w);
    if (std::string_view(kind.type).ends_with("polyline")) putClosing(w, closed);
    // The search for the next string passes over all blocks behind one that is of no known form.
    const std::size_t before = w.source.blocks.size();
    const bool known = putBlock(w, kind, level);
    if (closed) closeLast(w);
    for (unsigned more = isSuper ? w.choices.below(3) : 0; more > 0; --more) {
        if (w.choices.maybe()) w.line("  segment_text {" + w.lineEnd + "  }");
        putBlock(w, kind, kNoElevation);
    }
    if (!known) w.source.blocks.resize(before);
    w.line("}");
}

void putHead(ArchiveWriter& w) {
    w.nullWords = w.choices.maybe();
    w.hexadecimal = w.choices.maybe();
    if (w.choices.below(4) == 1) w.source.text += "\xEF\xBB\xBF";
    w.line("// archive_version 10");
    if (w.nullWords) w.line("// null_keyword true");
    if (w.hexadecimal) w.line("// output_hex_floats true");
    w.source.nullValue = kNoElevation;
    if (w.choices.maybe()) {
        w.line("null -999");
        if (!w.nullWords) w.source.nullValue = -999;
    }
    w.line("model \"m\"");
}

}  // namespace

ArchiveSource archiveSource(Choices& choices) {
    ArchiveSource source;
    ArchiveWriter w{choices, source, choices.maybe() ? "\r\n" : "\n"};
    w.nextPlace = choices.integer() % 4'000'000;
    w.step = static_cast<std::int32_t>(choices.below(256) + 1);
    putHead(w);
    while (!choices.ended()) putString(w);
    return source;
}

}  // namespace vantelgis::fuzz
