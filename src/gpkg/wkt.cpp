#include "gpkg/wkt.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <iterator>

#include "text/characters.h"

namespace vantelgis::gpkg {

namespace {

struct FirstWord {
    std::string_view word;
    bool wkt2;
    bool geographic;
};
constexpr FirstWord kFirstWords[] = {
    {"PROJCS", false, false},        {"GEOGCS", false, true},      {"GEOCCS", false, false},
    {"LOCAL_CS", false, false},      {"COMPD_CS", false, false},   {"PROJCRS", true, false},
    {"PROJECTEDCRS", true, false},   {"GEOGCRS", true, true},      {"GEOGRAPHICCRS", true, true},
    {"GEODCRS", true, true},         {"GEODETICCRS", true, true},  {"ENGCRS", true, false},
    {"ENGINEERINGCRS", true, false}, {"COMPOUNDCRS", true, false}, {"BOUNDCRS", true, false},
    {"DERIVEDPROJCRS", true, false},
};

constexpr bool isOpening(char c) {
    return c == '[' || c == '(';
}
constexpr bool isClosing(char c) {
    return c == ']' || c == ')';
}
constexpr bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// One line, without blanks outside of quotes.
std::string squeezed(std::string_view text) {
    std::string line;
    bool quoted = false;
    for (const char c : text) {
        if (c == '"') quoted = !quoted;
        if (quoted || !isSpace(c)) line += c == '\n' || c == '\r' || c == '\t' ? ' ' : c;
    }
    return line;
}

// Brackets close, quotes too, and nothing stands behind the last bracket.
bool isWhole(std::string_view wkt) {
    int depth = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < wkt.size(); ++i) {
        if (wkt[i] == '"') quoted = !quoted;
        if (quoted) continue;
        if (isOpening(wkt[i])) ++depth;
        if (isClosing(wkt[i]) && --depth == 0) return i + 1 == wkt.size();
    }
    return false;
}

std::string_view textInQuotes(std::string_view wkt) {
    const std::size_t start = wkt.find('"');
    if (start == std::string_view::npos) return {};
    return wkt.substr(start + 1, wkt.find('"', start + 1) - start - 1);
}

// The last member of the whole's own list that begins with `word`, from the word on.
std::string_view ownMember(std::string_view wkt, std::string_view word) {
    int depth = 0;
    bool quoted = false;
    std::string_view found;
    for (std::size_t i = 0; i < wkt.size(); ++i) {
        if (wkt[i] == '"') quoted = !quoted;
        if (quoted) continue;
        if (depth == 1 && wkt[i] == ',' && beginsWith(wkt.substr(i + 1), word))
            found = wkt.substr(i + 1);
        if (isOpening(wkt[i])) ++depth;
        if (isClosing(wkt[i])) --depth;
    }
    return found;
}

// AUTHORITY["EPSG","7855"] or ID["EPSG",7855]
void takeAuthority(CoordinateSystem& system) {
    const std::string_view member = ownMember(system.wkt, system.wkt2 ? "ID[" : "AUTHORITY[");
    const std::size_t comma = member.find(',');
    if (comma == std::string_view::npos) return;
    std::string_view digits = member.substr(comma + 1);
    if (digits.starts_with('"')) digits.remove_prefix(1);
    int code = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), code);
    if (error != std::errc{} || code <= 0) return;
    system.organization = textInQuotes(member);
    system.code = code;
}

// A compound or bound system is geographic when what it is made of is.
bool holdsGeographicAlone(std::string_view wkt, bool wkt2) {
    const auto holds = [wkt](std::string_view word) {
        return std::search(wkt.begin(), wkt.end(), word.begin(), word.end(),
                           [](char a, char b) { return toUpper(a) == b; }) != wkt.end();
    };
    if (!wkt2) return holds("GEOGCS[") && !holds("PROJCS[");
    return (holds("GEOGCRS[") || holds("GEODCRS[")) && !holds("PROJCRS[") && !holds("BASEGEOGCRS[");
}

}  // namespace

bool readWkt(std::string_view text, CoordinateSystem& system) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (text.starts_with(kMark)) text.remove_prefix(kMark.size());
    system = {};
    system.wkt = squeezed(text);
    const std::string_view word =
        std::string_view(system.wkt).substr(0, system.wkt.find_first_of("[("));
    const auto* const row =
        std::find_if(std::begin(kFirstWords), std::end(kFirstWords),
                     [&](const FirstWord& each) { return sameIgnoringCase(each.word, word); });
    if (row == std::end(kFirstWords) || !isWhole(system.wkt)) return false;
    system.name = textInQuotes(system.wkt);
    system.wkt2 = row->wkt2;
    system.geographic = row->geographic;
    const bool madeOfOthers = sameIgnoringCase(word, "COMPD_CS") ||
                              sameIgnoringCase(word, "COMPOUNDCRS") ||
                              sameIgnoringCase(word, "BOUNDCRS");
    if (madeOfOthers) system.geographic = holdsGeographicAlone(system.wkt, system.wkt2);
    takeAuthority(system);
    return true;
}

}  // namespace vantelgis::gpkg
