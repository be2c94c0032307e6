#include "drivers/drivers.h"

namespace vantelgis::fuzz {

namespace {

constexpr Driver kDrivers[] = {{"mif", runMif},
                               {"shp", runShp},
                               {"archive", runArchive},
                               {"command", runCommand},
                               {"boundaries", runBoundaries},
                               {"roundtrip", runRoundTrip},
                               {"gpkg", runGpkg}};

}  // namespace

std::span<const Driver> drivers() {
    return kDrivers;
}

const Driver* findDriver(std::string_view name) {
    for (const Driver& driver : kDrivers)
        if (driver.name == name) return &driver;
    return nullptr;
}

}  // namespace vantelgis::fuzz
