#include <exception>
#include <new>

#include "gpkg/options.h"
#include "gpkg/platform.h"
#include "gpkg/report.h"
#include "gpkg/to_archive/package_to_archive.h"
#include "gpkg/to_package/archives_to_package.h"
#include "run/platform.h"

namespace {

int run(int count, char** values) {
    using namespace vantelgis::gpkg;
    std::vector<std::string> arguments;
    if (!vantelgis::platform::takeArguments(count, values, arguments))
        fail("an argument is no text");
    arguments.erase(arguments.begin());
    for (std::string& argument : arguments) argument = platform::utf8Argument(argument);
    Options options;
    if (const std::optional<int> status = readCommandLine(std::move(arguments), options))
        return *status;
    if (options.quiet) silenceReports();
    if (directionOf(options) == Direction::toPackage) {
        archivesToPackage(options);
    } else {
        packageToArchive(options);
    }
    return 0;
}

}  // namespace

int main(int count, char** values) {
    constexpr int kNoResult = 1;
    vantelgis::platform::outliveRefusedWrites();
    try {
        return run(count, values);
    } catch (const vantelgis::gpkg::Failure& failure) {
        vantelgis::gpkg::reportFailure(failure.text);
    } catch (const std::bad_alloc&) {
        vantelgis::gpkg::reportFailure("there is not enough memory");
    } catch (const std::exception& error) {
        vantelgis::gpkg::reportFailure(error.what());
    }
    return kNoResult;
}
