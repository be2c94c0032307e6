#include "batch/look/coordinate_system.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "batch/input_file.h"
#include "text/characters.h"
#include "text/strings.h"

namespace vantelgis::batch {

namespace {

constexpr std::size_t kMostBytes = std::size_t{1} << 20;
constexpr std::size_t kLongestLine = 1000;  // that the converter keeps

std::string withoutEnds(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1));
}

std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        lines.push_back(withoutEnds(text.substr(0, end)));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

// A CoordSys clause goes on behind a comma at the end of its line.
void joinCoordSys(const std::vector<std::string>& lines, std::size_t first,
                  CoordinateSystem& system) {
    system.joined = lines[first];
    for (std::size_t i = first + 1; i < lines.size() && system.joined.ends_with(','); ++i)
        system.joined += " " + lines[i];
    if (system.joined != system.line) system.fault = "it goes over several lines";
}

// Well-known text ends with the bracket that its first word opens.
void joinWellKnownText(std::string_view text, CoordinateSystem& system) {
    const std::string whole = withoutEnds(text);
    std::string joined;
    for (const std::string& line : linesOf(whole)) joined += line;
    const bool projected = beginsWith(whole, "PROJCS");
    if (projected) system.joined = joined;
    if (beginsWith(whole, "PROJCRS"))
        system.fault = "it is written as WKT 2 (PROJCRS)";
    else if (beginsWith(whole, "GEOGC"))
        system.fault = "it is of longitudes and latitudes (GEOGCS)";
    else if (!projected)
        system.fault = "it has no PROJCS at its start";
    else if (joined != system.line)
        system.fault = "it goes over several lines";
}

std::string plainWords(std::string_view text) {
    std::string plain;
    for (const char c : text.substr(0, findIgnoringCase(text, " bounds"))) {
        if (c != ' ' && c != '\t') plain += toLower(c);
    }
    return plain;
}

// Every number behind a parameter's name, and the projection, in the order of their names.
std::vector<std::string> parametersOf(std::string_view text) {
    std::vector<std::string> parameters;
    for (const std::string_view word : {"parameter[\"", "projection[\""}) {
        std::size_t at = 0;
        while ((at = text.find(word, at)) != std::string_view::npos) {
            at += word.size();
            const std::string_view rest =
                text.substr(at, std::min(text.find(']', at), text.size()) - at);
            const std::size_t comma = rest.find(',');
            double value = 0;
            if (comma != std::string_view::npos)
                std::from_chars(rest.data() + comma + 1, rest.data() + rest.size(), value);
            parameters.push_back(std::string(rest.substr(0, rest.find('"'))) +
                                 std::to_string(value));
        }
    }
    std::sort(parameters.begin(), parameters.end());
    return parameters;
}

}  // namespace

CoordinateSystem readCoordinateSystem(const std::string& file, bool mif) {
    CoordinateSystem system;
    const std::string text = readStart(file, kMostBytes);
    const std::string_view word = mif ? "CoordSys" : "PROJCS";
    const std::vector<std::string> lines = linesOf(text);
    std::size_t first = 0;
    while (first < lines.size() && !containsIgnoringCase(lines[first], word)) ++first;
    if (first < lines.size()) system.line = lines[first].substr(0, kLongestLine);
    if (!mif) {
        joinWellKnownText(text, system);
    } else if (first == lines.size()) {
        system.fault = "it has no CoordSys line";
    } else {
        joinCoordSys(lines, first, system);
    }
    if (system.fault.empty() && lines[first].size() > kLongestLine)
        system.fault = "it is longer than 1000 characters";
    return system;
}

bool sameCoordinateSystem(std::string_view a, std::string_view b) {
    const std::string first = plainWords(a);
    const std::string second = plainWords(b);
    if (first == second) return true;
    const std::vector<std::string> parameters = parametersOf(first);
    return !parameters.empty() && parameters == parametersOf(second);
}

bool isGeographic(std::string_view text) {
    const std::string plain = plainWords(text);
    return plain.starts_with("geogc") || plain.find("earthprojection1,") != std::string::npos;
}

}  // namespace vantelgis::batch
