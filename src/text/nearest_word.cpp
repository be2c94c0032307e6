#include "text/nearest_word.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace vantelgis {

// Row by row through the table of the steps between all beginnings of the two words.
std::size_t stepsBetween(std::string_view a, std::string_view b) {
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

std::string_view nearestWord(std::string_view wrong, std::span<const std::string> words) {
    std::string_view nearest;
    std::size_t fewest = wrong.size() / 2 + 1;
    for (const std::string& word : words) {
        const std::size_t steps = stepsBetween(wrong, word);
        if (steps >= fewest) continue;
        fewest = steps;
        nearest = word;
    }
    return nearest;
}

}  // namespace vantelgis
