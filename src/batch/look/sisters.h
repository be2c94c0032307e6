#pragma once

#include <span>
#include <string>
#include <string_view>

/// The files of a layer that belong together.
namespace vantelgis::batch {

/// Extensions of the files that are read with a file of this name: with itself first. An archive
/// stands alone.
std::span<const std::string_view> extensionsOfSet(std::string_view name);

struct Sister {
    std::string file;        ///< empty when there is none
    bool ambiguous = false;  ///< several differ only in the case of their letters
};
/// The file with the name of `path` and another extension, as the converter would find it: under
/// that very name, or else the only one that differs in case alone.
Sister findSister(const std::string& path, std::string_view extension);

/// The file of this name in a folder, found in the same way.
Sister findInFolder(const std::string& folder, std::string_view name);

}  // namespace vantelgis::batch
