#include "gpkg/to_package/projection_file.h"

#include "gpkg/plain_file.h"
#include "gpkg/report.h"
#include "run/platform.h"
#include "text/paths.h"

namespace vantelgis::gpkg {

namespace {

CoordinateSystem readFile(std::string_view name) {
    constexpr std::size_t kMost = 1'000'000;
    CoordinateSystem system;
    if (!readWkt(contentsOf(name, kMost), system))
        fail(name,
             " holds no coordinate system: it must be well-known text such as PROJCS[...]. Name "
             "another file with --crs, or move this one away");
    return system;
}

}  // namespace

CoordinateSystem coordinateSystemOf(std::string_view archive, std::string_view named) {
    if (!named.empty()) return readFile(named);
    const std::string folder{folderOf(archive)};
    for (const std::string& name : {joined(withoutExtension(archive), ".prj"),
                                    folder + "Header.prj", folder + "Projection.prj"})
        if (vantelgis::platform::inputExists(name)) return readFile(name);
    return {};
}

}  // namespace vantelgis::gpkg
