#pragma once

#include <string>
#include <string_view>

namespace vantelgis::platform {

/// `name` as the file calls take it: with "/" for "\".
std::string systemName(std::string_view name);

/// The name under which an input is opened: itself, or the one file of its folder that differs in
/// case alone.
std::string inputName(std::string_view name);

/// A file, not a folder, of this name is there.
bool isFile(const std::string& name);

}  // namespace vantelgis::platform
