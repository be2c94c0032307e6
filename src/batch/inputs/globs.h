#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vantelgis::batch {

/// The name has a "*", "?" or "[".
bool isWildcard(std::string_view name);

/// `name` fits `glob`: "*" stands for any characters, "?" for one, "[a-z]" and "[!a-z]" for one of
/// these or none of these. Nothing stands for a folder separator. Letters have their case but where
/// the file system ignores it.
bool fitsGlob(std::string_view glob, std::string_view name);

/// The files that a wildcard stands for, in the order of their bytes. A part "**" stands for any
/// number of folders. Names that begin with a dot are found only by a part that does as well.
std::vector<std::string> expandWildcard(const std::string& pattern);

}  // namespace vantelgis::batch
