#include <algorithm>

#include "batch/files.h"
#include "batch/inputs/inputs.h"

namespace vantelgis::batch {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view withoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

ListedName listedName(std::string_view line) {
    const std::size_t tab = line.find('\t');
    if (tab == std::string_view::npos) return {std::string(line), {}};
    return {std::string(withoutBlanks(line.substr(0, tab))),
            std::string(withoutBlanks(line.substr(tab + 1)))};
}

}  // namespace

std::vector<ListedName> namesInList(std::string_view text, bool zeroBytes) {
    std::vector<ListedName> names;
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    const char divider = zeroBytes ? '\0' : '\n';
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(divider), text.size());
        const std::string piece = inOwnForm(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        const std::string_view line = withoutBlanks(piece);
        if (zeroBytes) {
            if (!piece.empty()) names.push_back({piece, {}});
        } else if (!line.empty() && line.front() != '#') {
            names.push_back(listedName(line));
        }
    }
    return names;
}

}  // namespace vantelgis::batch
