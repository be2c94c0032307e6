#include "batch/look/sisters.h"

#include <algorithm>
#include <optional>
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

// The names of a folder's files. They lie in one text, each with a zero byte behind it: a folder
// may hold a hundred thousand of them.
class FileNames {
  public:
    explicit FileNames(const std::string& folder) {
        visitFolder(folder, [&](const FolderEntry& entry) {
            if (entry.isFolder) return;
            starts_.push_back(text_.size());
            text_.append(entry.name).append(1, '\0');
        });
        std::sort(starts_.begin(), starts_.end(),
                  [&](std::size_t a, std::size_t b) { return comesBefore(nameAt(a), nameAt(b)); });
    }

    // All that differ from `name` in the case of letters alone.
    [[nodiscard]] std::vector<std::string_view> like(std::string_view name) const {
        std::vector<std::string_view> found;
        auto start = std::lower_bound(
            starts_.begin(), starts_.end(), name,
            [&](std::size_t a, std::string_view b) { return comesBefore(nameAt(a), b); });
        for (; start != starts_.end() && !comesBefore(name, nameAt(*start)); ++start)
            found.push_back(nameAt(*start));
        return found;
    }

  private:
    [[nodiscard]] std::string_view nameAt(std::size_t start) const { return text_.data() + start; }

    std::string text_;
    std::vector<std::size_t> starts_;  // in an order that ignores case
};

// Of the folder that was asked about last: inputs come folder by folder.
const FileNames& namesIn(const std::string& folder) {
    static std::string listed;
    static std::optional<FileNames> names;
    if (!names || listed != folder) names.emplace(folder);
    listed = folder;
    return *names;
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
    std::vector<std::string> found;
    for (const std::string_view match : namesIn(folder).like(name)) {
        if (std::string file = inFolder(folder, match); statusOf(file).isFile())
            found.push_back(std::move(file));
    }
    if (found.size() == 1) return {found.front(), false};
    return {{}, found.size() > 1};
}

Sister findSister(const std::string& path, std::string_view extension) {
    return findInFolder(folderPart(path), std::string(stemPart(namePart(path))).append(extension));
}

}  // namespace vantelgis::batch
