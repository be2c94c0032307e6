#include <algorithm>

#include "batch/files.h"

namespace vantelgis::batch {

bool listFolder(const std::string& folder, std::vector<FolderEntry>& entries) {
    entries.clear();
    const bool listed =
        visitFolder(folder, [&](FolderEntry&& entry) { entries.push_back(std::move(entry)); });
    std::sort(entries.begin(), entries.end(),
              [](const FolderEntry& a, const FolderEntry& b) { return a.name < b.name; });
    return listed;
}

bool makeFolders(const std::string& path) {
    if (statusOf(path).isFolder()) return true;
    const std::string parent = folderPart(path);
    if (parent != path && !statusOf(parent).exists() && !makeFolders(parent)) return false;
    return makeFolder(path);
}

bool removeTree(const std::string& path) {
    std::vector<FolderEntry> entries;
    listFolder(path, entries);
    bool removed = true;
    for (const FolderEntry& entry : entries) {
        const std::string name = inFolder(path, entry.name);
        if (!(entry.isFolder ? removeTree(name) : removeFile(name))) removed = false;
    }
    return removeEmptyFolder(path) && removed;
}

std::optional<std::string> readWholeFile(const std::string& path, std::size_t most) {
    namespace platform = vantelgis::platform;
    const auto file = openInput(path);
    if (file == platform::kNoFile) return std::nullopt;
    const std::int64_t size = platform::fileSize(file);
    std::optional<std::string> text;
    if (size >= 0 && static_cast<std::uint64_t>(size) <= most) {
        text.emplace(static_cast<std::size_t>(size), '\0');
        std::size_t length = 0;
        while (length < text->size()) {
            const std::int64_t count =
                platform::readFile(file, text->data() + length, text->size() - length);
            if (count <= 0) break;
            length += static_cast<std::size_t>(count);
        }
        text->resize(length);
    }
    static_cast<void>(platform::closeFile(file));
    return text;
}

}  // namespace vantelgis::batch
