#include "gis/layer_files.h"

#include <span>

#include "text/paths.h"

namespace vantelgis {

namespace {

constexpr std::string_view kMapInfoPair[] = {".mif", ".mid"};
constexpr std::string_view kShapefile[] = {".shp", ".shx", ".dbf", ".prj"};

std::span<const std::string_view> extensionsOf(std::string_view name) {
    if (hasExtension(name, ".shp")) return kShapefile;
    const bool isPair =
        hasExtension(name, ".mif") || hasExtension(name, ".mid") || extensionOf(name).empty();
    if (isPair) return kMapInfoPair;
    return {};
}

}  // namespace

std::vector<Path> gisFilesOf(std::string_view name) {
    std::vector<Path> files{name};
    for (const std::string_view extension : extensionsOf(name)) {
        files.emplace_back(withoutExtension(name));
        files.back() += extension;
    }
    return files;
}

Path gisFamilyStem(std::string_view name, char letter) {
    Path stem = withoutExtension(name);
    stem += "_";
    stem += {&letter, 1};
    return stem;
}

}  // namespace vantelgis
