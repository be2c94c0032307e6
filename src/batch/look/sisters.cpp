#include "batch/look/sisters.h"

#include <algorithm>
#include <vector>

#include "batch/converter_arguments.h"
#include "batch/files.h"
#include "text/characters.h"

namespace vantelgis::batch {

namespace {

bool comesBefore(std::string_view a, std::string_view b) {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](char c, char d) { return toLower(c) < toLower(d); });
}

// The names in the folder that was asked about last, in an order that ignores case: inputs come
// folder by folder, and a folder may hold a hundred thousand of them.
const std::vector<std::string>& namesIn(const std::string& folder) {
    static std::string listed;
    static std::vector<std::string> names;
    if (listed == folder) return names;
    listed = folder;
    names.clear();
    std::vector<FolderEntry> entries;
    listFolder(folder, entries);
    for (FolderEntry& entry : entries) {
        if (!entry.isFolder) names.push_back(std::move(entry.name));
    }
    std::sort(names.begin(), names.end(), comesBefore);
    return names;
}

}  // namespace

std::span<const std::string_view> extensionsOfSet(std::string_view name) {
    static constexpr std::string_view kMif[] = {".mif", ".mid"};
    static constexpr std::string_view kShp[] = {".shp", ".dbf"};
    switch (inputKindOf(name)) {
        case InputKind::mif: return kMif;
        case InputKind::shp: return kShp;
        default: return {};
    }
}

Sister findInFolder(const std::string& folder, std::string_view name) {
    const std::string exact = inFolder(folder, name);
    if (statusOf(exact).isFile()) return {exact, false};
    const auto& names = namesIn(folder);
    const auto [first, last] = std::equal_range(names.begin(), names.end(), name, comesBefore);
    std::vector<std::string> found;
    for (auto match = first; match != last; ++match) {
        if (std::string file = inFolder(folder, *match); statusOf(file).isFile())
            found.push_back(std::move(file));
    }
    if (found.size() == 1) return {found.front(), false};
    return {{}, found.size() > 1};
}

Sister findSister(const std::string& path, std::string_view extension) {
    return findInFolder(folderPart(path), std::string(stemPart(namePart(path))).append(extension));
}

}  // namespace vantelgis::batch
