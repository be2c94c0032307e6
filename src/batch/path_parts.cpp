#include "batch/files.h"

namespace vantelgis::batch {

namespace {

std::size_t nameStart(std::string_view path) {
    std::size_t start = path.size();
    while (start > 0 && !isPathSeparator(path[start - 1])) --start;
    return start;
}

}  // namespace

std::string inFolder(std::string_view folder, std::string_view name) {
    std::string path(folder);
    if (!path.empty() && !isPathSeparator(path.back())) path += pathSeparator();
    return path.append(name);
}

std::string fullName(const std::string& path) {
    const bool drive = path.size() > 1 && path[1] == ':' && isPathSeparator('\\');
    if (path.empty() || isPathSeparator(path.front()) || drive) return path;
    return inFolder(absoluteName("."), path);
}

std::string folderPart(std::string_view path) {
    const std::size_t start = nameStart(path);
    if (start == 0) return ".";
    std::size_t end = start - 1;
    while (end > 0 && isPathSeparator(path[end - 1])) --end;
    const bool isRoot = end == 0 || path[end - 1] == ':';
    return std::string(path.substr(0, isRoot ? end + 1 : end));
}

std::string_view namePart(std::string_view path) {
    return path.substr(nameStart(path));
}

std::string_view stemPart(std::string_view name) {
    return name.substr(0, name.size() - extensionPart(name).size());
}

std::string_view extensionPart(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || dot <= nameStart(name)) return {};
    return name.substr(dot);
}

}  // namespace vantelgis::batch
