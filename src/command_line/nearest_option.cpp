#include "command_line/nearest_option.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstddef>
#include <numeric>
#include <vector>

namespace vantelgis {

namespace {

// Steps of one character that lead from one word to the other.
std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t replaced = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({row[j] + 1, row[j + 1] + 1, replaced});
        }
    }
    return row.back();
}

}  // namespace

std::string nearestOption(const CLI::App& app, std::string_view wrong) {
    wrong = wrong.substr(0, wrong.find('='));
    std::string nearest;
    std::size_t best = wrong.size() / 2 + 1;
    for (const CLI::Option* const option : app.get_options()) {
        for (const std::string& name : option->get_lnames()) {
            const std::size_t steps = distance(wrong, "--" + name);
            if (steps >= best || option->get_group().empty()) continue;
            best = steps;
            nearest = "--" + name;
        }
    }
    return nearest;
}

}  // namespace vantelgis
