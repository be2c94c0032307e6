#include "run/platform_posix_names.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstddef>

#include "text/characters.h"

namespace vantelgis::platform {

std::string systemName(std::string_view name) {
    std::string result(name);
    std::replace(result.begin(), result.end(), '\\', '/');
    return result;
}

bool isFile(const std::string& name) {
    struct stat status {};
    return stat(name.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

std::string inputName(std::string_view name) {
    std::string result = systemName(name);
    if (isFile(result)) return result;
    const std::size_t slash = result.rfind('/');
    const std::size_t start = slash == std::string::npos ? 0 : slash + 1;
    const std::string folder = start == 0 ? "." : result.substr(0, start);
    DIR* entries = opendir(folder.c_str());
    if (entries == nullptr) return result;
    std::string match;
    int matches = 0;
    while (const dirent* entry = readdir(entries)) {
        if (!sameIgnoringCase(entry->d_name, std::string_view(result).substr(start))) continue;
        const std::string candidate = result.substr(0, start) + entry->d_name;
        if (!isFile(candidate)) continue;
        match = candidate;
        ++matches;
    }
    closedir(entries);
    return matches == 1 ? match : result;
}

}  // namespace vantelgis::platform
