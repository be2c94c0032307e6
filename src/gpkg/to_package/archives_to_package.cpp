#include "gpkg/to_package/archives_to_package.h"

#include <algorithm>
#include <string>
#include <vector>

#include "gpkg/package/existing_package.h"
#include "gpkg/package/schema.h"
#include "gpkg/package/string_layers.h"
#include "gpkg/plain_file.h"
#include "gpkg/platform.h"
#include "gpkg/report.h"
#include "gpkg/result_file.h"
#include "gpkg/to_package/archive_import.h"
#include "gpkg/to_package/projection_file.h"
#include "gpkg/transcoding.h"
#include "gpkg/wkt.h"
#include "run/platform.h"
#include "text/paths.h"

namespace vantelgis::gpkg {

namespace {

// An archive and what the package calls it.
struct Source {
    std::string file;
    std::string name;
};

std::vector<Source> sourcesOf(const Options& options) {
    std::vector<Source> sources;
    for (const std::string& file : options.inputs) {
        if (!vantelgis::platform::inputExists(file)) fail(file, " isn't there, or is no file");
        const Source source{file, std::string(fileNameOf(file))};
        const bool twice = std::any_of(sources.begin(), sources.end(), [&](const Source& other) {
            return other.name == source.name;
        });
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
CoordinateSystem commonSystem(const std::vector<Source>& sources, std::string_view named) {
    CoordinateSystem common;
    const Source* owner = nullptr;
    std::size_t undefined = 0;
    for (const Source& source : sources) {
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

// The package's own system counts where the archives have none.
std::int32_t systemOfLayers(Database& database, const CoordinateSystem& system) {
    const std::int32_t wanted = addCoordinateSystem(database, system);
    if (!hasTable(database, kStringsLayer)) return wanted;
    const auto there = static_cast<std::int32_t>(database.valueOf(
        "SELECT srs_id FROM gpkg_geometry_columns WHERE table_name='strings'", wanted));
    if (there != wanted && wanted != kUndefinedCartesian)
        fail(database.file(), ": its strings are in another coordinate system than \"", system.name,
             "\"; name theirs with --crs, or write a package of its own");
    return there;
}

// Reads an archive, in UTF-16 by way of a copy in UTF-8 beside the result.
ImportCounts importArchive(const Source& source, StringLayers& layers, const Options& options,
                           const std::string& scratchName) {
    ImportChoices choices{options.hip, options.encoding};
    const Encoding marked = markedEncoding(source.file);
    if (marked != Encoding::automatic) choices.encoding = marked;
    layers.beginArchive(source.name);
    ArchiveImport import{layers, choices};
    if (!isUtf16(choices.encoding)) return import.run(source.file, source.file);
    const ScratchFile decoded{scratchName + ".text"};
    const std::int64_t replaced = transcodeToUtf8(source.file, choices.encoding, decoded.name());
    if (replaced > 0)
        reportWarning(
            joined(source.file, ": ", replaced,
                   " units of its UTF-16 are no characters; U+FFFD stands in their place"));
    return import.run(decoded.name(), source.file);
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

ImportCounts fillPackage(Database& database, const std::vector<Source>& sources,
                         const CoordinateSystem& system, const Options& options,
                         const std::string& scratchName) {
    database.execute("BEGIN");
    if (!hasTable(database, "gpkg_contents")) createPackage(database);
    requireTables(database);
    const std::int32_t srsId = systemOfLayers(database, system);
    createLayers(database, srsId, options.vertices);
    for (const std::string_view layer : {kStringsLayer, kPointsLayer, kVerticesLayer})
        dropIndexTriggers(database, layer);
    for (const Source& source : sources) removeArchive(database, source.name);
    ImportCounts counts;
    {
        StringLayers layers{
            database, {srsId, options.nullZ.value_or(kNoElevation)}, options.vertices};
        for (const Source& source : sources) {
            const ImportCounts own = importArchive(source, layers, options, scratchName);
            counts.strings += own.strings;
            counts.points += own.points;
            counts.ignored += own.ignored;
        }
        layers.finish();
    }
    for (const std::string_view layer : {kStringsLayer, kPointsLayer, kVerticesLayer})
        if (hasTable(database, layer)) createIndexTriggers(database, layer);
    database.execute("COMMIT");
    return counts;
}

}  // namespace

void archivesToPackage(const Options& options) {
    const std::vector<Source> sources = sourcesOf(options);
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
