#include <algorithm>
#include <optional>
#include <unordered_map>

#include "batch/files.h"
#include "batch/inputs/inputs.h"

namespace vantelgis::batch {

namespace {

constexpr std::string_view kStem = "{stem}";

// The end of `name` with as many folders as `pattern` has.
std::string_view comparedPart(std::string_view name, std::string_view pattern) {
    auto folders = std::count_if(pattern.begin(), pattern.end(), isPathSeparator);
    std::size_t start = name.size();
    while (start > 0 && (!isPathSeparator(name[start - 1]) || folders-- > 0)) --start;
    return name.substr(start);
}

// What {stem} stands for in `text`, if that fits the pattern.
std::optional<std::string> stemIn(std::string_view pattern, std::string_view text) {
    const std::size_t place = pattern.find(kStem);
    if (place == std::string_view::npos) return std::nullopt;
    const std::string_view before = pattern.substr(0, place);
    const std::string_view behind = pattern.substr(place + kStem.size());
    if (text.size() <= before.size() + behind.size()) return std::nullopt;
    const std::size_t length = text.size() - before.size() - behind.size();
    const std::string_view stem = text.substr(before.size(), length);
    const bool fits = nameKey(text.substr(0, place)) == nameKey(before) &&
                      nameKey(text.substr(place + length)) == nameKey(behind) &&
                      std::none_of(stem.begin(), stem.end(), isPathSeparator);
    return fits ? std::optional(std::string(stem)) : std::nullopt;
}

std::string filled(std::string_view pattern, std::string_view stem) {
    const std::size_t place = pattern.find(kStem);
    if (place == std::string_view::npos) return std::string(pattern);
    return std::string(pattern.substr(0, place))
        .append(stem)
        .append(pattern.substr(place + kStem.size()));
}

enum class Side { none, points, lines };

Side joinWith(const std::pair<std::string, std::string>& pattern, Input& input) {
    const std::string_view points = comparedPart(input.name, pattern.first);
    if (const auto stem = stemIn(pattern.first, points)) {
        const std::size_t before = input.name.size() - points.size();
        input.second = input.name.substr(0, before) + filled(pattern.second, *stem);
        return Side::points;
    }
    const bool lines = stemIn(pattern.second, comparedPart(input.name, pattern.second)).has_value();
    return lines ? Side::lines : Side::none;
}

std::string keyOf(const std::string& name) {
    const std::string absolute = absoluteName(name);
    return nameKey(absolute.empty() ? name : absolute);
}

}  // namespace

void joinPairs(const std::vector<std::pair<std::string, std::string>>& patterns, Inputs& inputs) {
    std::size_t others = 0;
    std::erase_if(inputs.items, [&](Input& input) {
        if (!input.second.empty()) return false;
        for (const auto& pattern : patterns) {
            const Side side = joinWith(pattern, input);
            if (side != Side::none) return side == Side::lines;
        }
        ++others;
        return true;
    });
    for (const auto& [points, lines] : patterns) {
        if (points.find(kStem) != std::string::npos) continue;
        const std::size_t root = points.size() - namePart(points).size();
        inputs.items.push_back({points, lines, static_cast<std::uint32_t>(root), 0});
    }
    if (others > 0)
        inputs.notes.push_back(std::to_string(others) +
                               " files left out that fit neither side of --pair");
}

void dropRepeatedPairs(std::vector<Input>& items) {
    std::unordered_multimap<std::size_t, std::size_t> places;  // by the hash of both names
    std::size_t kept = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        bool repeated = false;
        if (!items[i].second.empty()) {
            const std::string points = keyOf(items[i].name);
            const std::string lines = keyOf(items[i].second);
            const std::size_t hash =
                std::hash<std::string>{}(std::string(points).append("\n").append(lines));
            const auto [first, last] = places.equal_range(hash);
            repeated = std::any_of(first, last, [&](const auto& place) {
                const Input& other = items[place.second];
                return keyOf(other.name) == points && keyOf(other.second) == lines;
            });
            if (!repeated) places.emplace(hash, kept);
        }
        if (repeated) continue;
        if (i != kept) items[kept] = std::move(items[i]);
        ++kept;
    }
    items.resize(kept);
}

}  // namespace vantelgis::batch
