#include "text/paths.h"

#include <algorithm>

#include "text/characters.h"
#include "text/strings.h"

namespace vantelgis {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

std::string_view cutPath(std::string_view path) {
    return withoutTrailingBlanks(path.substr(0, Path::capacity()));
}

// Columns count from 1, so that 0 is "none" and columns compare as they stand.
std::size_t lastColumn(std::string_view path, std::string_view anyOf) {
    return path.find_last_of(anyOf) + 1;
}
std::size_t separatorColumn(std::string_view path) {
    return lastColumn(path, "\\/");
}
std::size_t dotColumn(std::string_view path) {
    return lastColumn(path, ".");
}

void removeDoubledSeparators(TextRef path) {
    for (std::size_t at; (at = path.view().find("\\\\")) != kNone && at >= 2;)
        replacePiece(path, at + 1, 1, {});
}

void resolveParents(TextRef path) {
    constexpr std::string_view kParent = "\\..\\";
    std::size_t at = path.view().find(kParent);
    while (at != kNone && at > 0) {
        const std::string_view before = path.view().substr(0, at);
        if (before.size() >= 2 && before.substr(at - 2) == "..") {
            at = path.view().find(kParent, at + 1);
        } else {
            const std::size_t kept = lastColumn(before, "\\");
            replacePiece(path, kept, at + kParent.size() - kept, {});
            at = path.view().find(kParent);
        }
    }
}

void removeSelfFolders(TextRef path) {
    for (std::size_t at; (at = path.view().find("\\.\\")) != kNone;)
        replacePiece(path, at + 1, 2, {});
}

// Column of the first "\\" or of the first "//", whichever stands further on; 0 if there is
// neither.
std::size_t doubledSeparatorColumn(std::string_view path) {
    return std::max(path.find("\\\\") + 1, path.find("//") + 1);
}

}  // namespace

std::string_view extensionOf(std::string_view path) {
    const std::size_t dot = dotColumn(path);
    if (dot == 0 || dot <= separatorColumn(path)) return {};
    return withoutTrailingBlanks(path.substr(dot - 1));
}

bool hasExtension(std::string_view path, std::string_view extension) {
    return sameIgnoringCase(extensionOf(path), extension);
}

std::string_view baseNameOf(std::string_view path) {
    path = withoutTrailingBlanks(path);
    const std::size_t separator = separatorColumn(path);
    const std::size_t dot = dotColumn(path);
    const bool keepsDot = separator == 0 ? dot == 0 : dot <= separator + 1;
    const std::size_t end = keepsDot ? path.size() : dot - 1;
    return withoutTrailingBlanks(path.substr(separator, end - separator));
}

std::string_view fileNameOf(std::string_view path) {
    return withoutTrailingBlanks(path.substr(separatorColumn(path)));
}

std::string_view withoutExtension(std::string_view path) {
    const std::size_t dot = dotColumn(path);
    const bool hasOne = dot > 1 && dot > separatorColumn(path);
    return withoutTrailingBlanks(hasOne ? path.substr(0, dot - 1) : path);
}

std::string_view folderOf(std::string_view path) {
    return path.substr(0, separatorColumn(path));
}

Path joinedPath(std::string_view folder, std::string_view name) {
    folder = cutPath(folder);
    name = cutPath(withoutLeadingBlanks(name));
    const bool absolute = name.find(':') != kNone || name.find("\\\\") != kNone;
    if (folder.empty() && name.empty()) return resolvedPath(".");
    if (folder.empty() || absolute) return resolvedPath(name);
    Path joined = folder;
    if (!name.empty() && !isSeparator(folder.back())) joined += "\\";
    joined += name;
    return resolvedPath(joined);
}

Path resolvedPath(std::string_view path) {
    Path work(withoutLeadingBlanks(path));
    removeDoubledSeparators(work);
    resolveParents(work);
    removeSelfFolders(work);
    return work;
}

void cleanPath(TextRef path) {
    path.assign(cutPath(withoutLeadingBlanks(path.view())));
    for (std::size_t column; (column = doubledSeparatorColumn(path.view())) >= 2;)
        replacePiece(path, column, 1, {});
}

Path driveAsFolder(std::string_view path) {
    Path work(withoutLeadingBlanks(path));
    const TextRef text = work;
    const std::size_t colon = text.view().find(':');
    if (colon != kNone) {
        std::transform(text.data, text.data + colon, text.data, toUpper);
        replacePiece(text, colon, 1, " Drive");
    }
    if (beginsWith(text.view(), "\\\\") || beginsWith(text.view(), "//"))
        replacePiece(text, 0, 2, "URL\\");
    return work;
}

}  // namespace vantelgis
