#include "gpkg/to_package/archives_to_package.h"

#include <algorithm>
#include <string>
#include <vector>

#include "gpkg/package/existing_package.h"
#include "gpkg/package/schema.h"
#include "gpkg/plain_file.h"
#include "gpkg/platform.h"
#include "gpkg/report.h"
#include "gpkg/result_file.h"
#include "gpkg/to_package/fill_package.h"
#include "gpkg/to_package/projection_file.h"
#include "gpkg/wkt.h"
#include "run/platform.h"
#include "text/paths.h"

namespace vantelgis::gpkg {

namespace {

std::vector<ArchiveSource> sourcesOf(const Options& options) {
    std::vector<ArchiveSource> sources;
    for (const std::string& file : options.inputs) {
        if (!vantelgis::platform::inputExists(file)) fail(file, " isn't there, or is no file");
        const ArchiveSource source{file, std::string(fileNameOf(file))};
        const bool twice =
            std::any_of(sources.begin(), sources.end(),
                        [&](const ArchiveSource& other) { return other.name == source.name; });
        if (twice)
            fail("two of the archives are called ", source.name,
                 ": the package couldn't tell their strings apart. Rename one");
        sources.push_back(source);
    }
    return sources;
}

std::string targetOf(const Options& options) {
    if (!options.output.empty()) return options.output;
    return joined(withoutExtension(options.inputs.front()), ".gpkg");
}

// Archives that share a package share its coordinate system; those without one take what there is.
CoordinateSystem commonSystem(const std::vector<ArchiveSource>& sources, std::string_view named) {
    CoordinateSystem common;
    const ArchiveSource* owner = nullptr;
    std::size_t undefined = 0;
    for (const ArchiveSource& source : sources) {
        CoordinateSystem system = coordinateSystemOf(source.file, named);
        if (system.wkt.empty()) {
            ++undefined;
        } else if (owner == nullptr) {
            common = std::move(system);
            owner = &source;
        } else if (system.wkt != common.wkt) {
            fail(source.file, " is in another coordinate system than ", owner->file, ": \"",
                 system.name, "\" and \"", common.name, "\". Name the common one with --crs");
        }
    }
    if (owner == nullptr) {
        reportNote(
            "no .prj beside the archive: the coordinate system stays undefined (--crs names "
            "one)");
    } else if (undefined > 0) {
        reportNote(joined("archives without a .prj are taken to be in \"", common.name, "\""));
    }
    return common;
}

void reportCounts(const std::string& target, const ImportCounts& counts) {
    std::string line = joined(target, ": ", counted(counts.strings, "string", "strings"));
    if (counts.points > 0) line += joined(", ", counted(counts.points, "point", "points"));
    if (counts.ignored > 0)
        line += joined(", ", counts.ignored, " ignored (table \"", kIgnoredTable, "\" says why)");
    reportVerdict(line);
}

void checkIntegrity(Database& database) {
    Statement check = database.prepare("PRAGMA integrity_check(1)");
    if (check.nextRow() && check.text(0) != "ok")
        fail(database.file(), " didn't pass SQLite's check: ", check.text(0));
}

}  // namespace

void archivesToPackage(const Options& options) {
    const std::vector<ArchiveSource> sources = sourcesOf(options);
    const std::string target = targetOf(options);
    const CoordinateSystem system = commonSystem(sources, options.crs);
    refusePackageInUse(target);
    const bool exists = platform::somethingExists(target);
    if (exists && !options.append && !options.replace) refuseForeignLayers(target);
    ResultFile result{target};
    if (exists && options.append) {
        requirePackage(target);
        copyFile(target, result.scratchName());
    }
    Database database = Database::openScratch(result.scratchName());
    const ImportCounts counts =
        fillPackage(database, sources, system, options, result.scratchName());
    if (options.check) checkIntegrity(database);
    database.close();
    result.publish();
    reportCounts(target, counts);
}

}  // namespace vantelgis::gpkg
