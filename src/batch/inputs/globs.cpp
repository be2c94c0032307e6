#include "batch/inputs/globs.h"

#include <algorithm>

#include "batch/files.h"

namespace vantelgis::batch {

namespace {

constexpr std::string_view kMarks = "*?[";

// The length of a set in brackets at the start of `glob`, 0 when there is none; `fits` says whether
// `c` is one of it.
std::size_t setLength(std::string_view glob, char c, bool& fits) {
    const std::size_t end =
        glob.find(']', glob.starts_with("[!") || glob.starts_with("[^") ? 3 : 2);
    if (end == std::string_view::npos) return 0;
    const bool inverted = glob[1] == '!' || glob[1] == '^';
    bool found = false;
    for (std::size_t i = inverted ? 2 : 1; i < end; ++i) {
        const bool range = i + 2 < end && glob[i + 1] == '-';
        if (range ? c >= glob[i] && c <= glob[i + 2] : c == glob[i]) found = true;
        if (range) i += 2;
    }
    fits = found != inverted;
    return end + 1;
}

// What of `glob` stands for the character `c`; 0 when it doesn't.
std::size_t fitting(std::string_view glob, char c) {
    if (glob.empty() || isPathSeparator(c)) return !glob.empty() && glob.front() == c ? 1 : 0;
    if (glob.front() == '?') return 1;
    bool fits = false;
    if (glob.front() == '[') {
        if (const std::size_t length = setLength(glob, c, fits); length > 0)
            return fits ? length : 0;
    }
    return glob.front() == c ? 1 : 0;
}

bool keysFit(std::string_view glob, std::string_view name) {
    std::size_t g = 0;
    std::size_t n = 0;
    std::size_t afterStar = std::string_view::npos;  // where to go on with what a "*" stands for
    std::size_t starName = 0;
    while (n < name.size()) {
        if (g < glob.size() && glob[g] == '*') {
            afterStar = ++g;
            starName = n;
            continue;
        }
        if (const std::size_t length = fitting(glob.substr(g), name[n]); length > 0) {
            g += length;
            ++n;
            continue;
        }
        if (afterStar == std::string_view::npos || isPathSeparator(name[starName])) return false;
        g = afterStar;
        n = ++starName;
    }
    while (g < glob.size() && glob[g] == '*') ++g;
    return g == glob.size();
}

// Adds what is found below `folder` for the parts of a pattern from `pattern` on.
void expandBelow(const std::string& folder, std::string_view pattern,
                 std::vector<std::string>& found) {
    const auto slash = std::find_if(pattern.begin(), pattern.end(), isPathSeparator);
    const std::string_view part(pattern.begin(), slash);
    const bool last = slash == pattern.end();
    const std::string_view rest =
        last ? std::string_view{} : std::string_view(slash + 1, pattern.end());
    if (!isWildcard(part)) {
        const std::string name = inFolder(folder, part);
        if (!last) return expandBelow(part.empty() ? folder + "/" : name, rest, found);
        if (statusOf(name).isFile()) found.push_back(name);
        return;
    }
    const bool anyDepth = part == "**" && !last;
    if (anyDepth) expandBelow(folder, rest, found);
    std::vector<FolderEntry> entries;
    listFolder(folder.empty() ? "." : folder, entries);
    for (const FolderEntry& entry : entries) {
        if (entry.name.front() == '.' && part.front() != '.') continue;
        const std::string name = inFolder(folder, entry.name);
        if (anyDepth) {
            if (entry.isFolder) expandBelow(name, pattern, found);
        } else if (fitsGlob(part, entry.name)) {
            const FileStatus status = statusOf(name);
            if (last && status.isFile()) found.push_back(name);
            if (!last && status.isFolder()) expandBelow(name, rest, found);
        }
    }
}

}  // namespace

bool isWildcard(std::string_view name) {
    return name.find_first_of(kMarks) != std::string_view::npos;
}

bool fitsGlob(std::string_view glob, std::string_view name) {
    return keysFit(nameKey(glob), nameKey(name));
}

std::vector<std::string> expandWildcard(const std::string& pattern) {
    std::vector<std::string> found;
    const bool rooted = isPathSeparator(pattern.front());
    expandBelow(rooted ? "/" : "", std::string_view(pattern).substr(rooted ? 1 : 0), found);
    return found;
}

}  // namespace vantelgis::batch
