#include "gpkg/colours.h"

#include <string>

#include "text/characters.h"

namespace vantelgis::gpkg {

namespace {

struct NamedColour {
    std::string_view name;
    Colour colour;
};
constexpr NamedColour kColours[] = {
    {"black", {0, 0, 0}},
    {"white", {255, 255, 255}},
    {"red", {255, 0, 0}},
    {"green", {0, 255, 0}},
    {"blue", {0, 0, 255}},
    {"yellow", {255, 255, 0}},
    {"cyan", {0, 255, 255}},
    {"magenta", {255, 0, 255}},
    {"grey", {128, 128, 128}},
    {"orange", {255, 165, 0}},
    {"brown", {150, 75, 0}},
    {"purple", {128, 0, 128}},
    {"violet", {238, 130, 238}},
    {"pink", {255, 150, 190}},
    {"lime", {50, 205, 50}},
    {"olive", {128, 128, 0}},
    {"maroon", {128, 0, 0}},
    {"navy", {0, 0, 128}},
    {"teal", {0, 128, 128}},
    {"aqua", {0, 200, 200}},
    {"turquoise", {64, 224, 208}},
    {"indigo", {75, 0, 130}},
    {"gold", {255, 200, 0}},
    {"silver", {192, 192, 192}},
    {"tan", {210, 180, 140}},
    {"beige", {245, 245, 220}},
    {"khaki", {195, 176, 145}},
    {"cream", {255, 253, 208}},
    {"salmon", {250, 128, 114}},
    {"coral", {255, 127, 80}},
    {"crimson", {220, 20, 60}},
    {"scarlet", {255, 36, 0}},
    {"rust", {183, 65, 14}},
    {"sienna", {160, 82, 45}},
    {"chocolate", {123, 63, 0}},
    {"lavender", {200, 160, 255}},
    {"plum", {142, 69, 133}},
    {"mauve", {190, 130, 220}},
    {"lilac", {200, 162, 200}},
    {"fuchsia", {255, 0, 255}},
    {"mint", {152, 255, 152}},
    {"sky", {135, 206, 235}},
    {"skyblue", {135, 206, 235}},
    {"royalblue", {65, 105, 225}},
    {"steelblue", {70, 130, 180}},
    {"seagreen", {46, 139, 87}},
    {"forestgreen", {34, 139, 34}},
    {"limegreen", {50, 205, 50}},
    {"yellowgreen", {154, 205, 50}},
    {"greenyellow", {173, 255, 47}},
    {"orangered", {255, 69, 0}},
    {"hotpink", {255, 105, 180}},
};

// A shade lies so many hundredths of the way from the colour to black or to white.
struct Shade {
    std::string_view word;
    int hundredths;
    std::uint8_t towards;
};
constexpr Shade kShades[] = {
    {"dark", 45, 0}, {"light", 55, 255}, {"pale", 65, 255}, {"off", 25, 255}, {"medium", 20, 0}};

constexpr std::uint8_t mixed(std::uint8_t from, const Shade& shade) {
    return static_cast<std::uint8_t>(from + (shade.towards - from) * shade.hundredths / 100);
}

std::optional<Colour> find(std::string_view name) {
    for (const NamedColour& row : kColours)
        if (row.name == name) return row.colour;
    return std::nullopt;
}

std::string plainName(std::string_view name) {
    std::string plain;
    for (const char c : name)
        if (c != ' ' && c != '_' && c != '-') plain += toLower(c);
    const std::size_t gray = plain.find("gray");
    if (gray != std::string::npos) plain[gray + 2] = 'e';
    return plain;
}

}  // namespace

std::optional<Colour> colourFromName(std::string_view name) {
    const std::string plain = plainName(name);
    if (const std::optional<Colour> colour = find(plain)) return colour;
    for (const Shade& shade : kShades) {
        if (!plain.starts_with(shade.word)) continue;
        const std::optional<Colour> base = find(std::string_view(plain).substr(shade.word.size()));
        if (!base) continue;
        return Colour{mixed(base->red, shade), mixed(base->green, shade), mixed(base->blue, shade)};
    }
    return std::nullopt;
}

bool needsEdge(Colour colour) {
    constexpr int kNearlyWhite = 225;
    return colour.red > kNearlyWhite && colour.green > kNearlyWhite && colour.blue > kNearlyWhite;
}

}  // namespace vantelgis::gpkg
