#pragma once

#include <span>
#include <string_view>

namespace vantelgis::fuzz {

/// Makes a run of the whole program out of some bytes. What is wrong with the program ends the
/// process: a sanitizer's report, an exception, a run that depends on how its input is cut into
/// reads.
struct Driver {
    std::string_view name;
    void (*run)(std::string_view bytes);
};

/// `mif`, `shp`, `archive` and `command`.
std::span<const Driver> drivers();

/// Null if there is none of that name.
const Driver* findDriver(std::string_view name);

}  // namespace vantelgis::fuzz
