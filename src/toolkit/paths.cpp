#include "toolkit/paths.h"

#include "text/paths.h"
#include "text/strings.h"

namespace vantelgis {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

std::string_view cutPath(std::string_view path) {
    return path.substr(0, Path::capacity());
}

}  // namespace

void FILEEXT(TextRef out, std::string_view path) {
    lowerCase(out, extensionOf(cutPath(path)));
}

void FILEEXTKC(TextRef out, std::string_view path) {
    out.assign(extensionOf(cutPath(path)));
}

void FILE___EXT(TextRef out, std::string_view path) {
    const std::string_view name = baseNameOf(cutPath(path));
    const std::size_t underscore = name.rfind('_');
    lowerCase(out, underscore == kNone ? std::string_view{} : name.substr(underscore));
}

void FILENAME(TextRef out, std::string_view path) {
    out.assign(baseNameOf(cutPath(path)));
}

void FILENAMEEXT(TextRef out, std::string_view path) {
    out.assign(fileNameOf(cutPath(path)));
}

void FILENAMENO_(TextRef out, std::string_view path) {
    const std::string_view name = baseNameOf(cutPath(path));
    out.assign(name.substr(0, name.rfind('_')));
}

void FILENAMEPATH(TextRef out, std::string_view path) {
    out.assign(withoutExtension(cutPath(path)));
}

void FILENAMEPATHNO_(TextRef out, std::string_view path) {
    path = withoutExtension(cutPath(path));
    const std::size_t underscore = path.rfind('_');
    const bool inName =
        underscore != 0 && underscore != kNone && underscore >= folderOf(path).size();
    out.assign(inName ? path.substr(0, underscore) : path);
}

void FILEFOLDERPATH(TextRef out, std::string_view path) {
    out.assign(folderOf(cutPath(path)));
}

void ADDFOLDER(TextRef out, std::string_view folder, std::string_view name) {
    out.assign(joinedPath(folder, name));
}

void REMOVEDOTDOT(TextRef out, std::string_view path) {
    out.assign(resolvedPath(path));
}

void CLEANPATH(TextRef out, TextRef path) {
    cleanPath(path);
    out.assign(path.view());
}

}  // namespace vantelgis
