#include "gpkg/to_package/fill_package.h"

#include "gpkg/package/existing_package.h"
#include "gpkg/package/schema.h"
#include "gpkg/package/string_layers.h"
#include "gpkg/report.h"
#include "gpkg/result_file.h"
#include "gpkg/transcoding.h"

namespace vantelgis::gpkg {

namespace {

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
ImportCounts importArchive(const ArchiveSource& source, StringLayers& layers,
                           const Options& options, const std::string& scratchName) {
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

}  // namespace

ImportCounts fillPackage(Database& database, const std::vector<ArchiveSource>& sources,
                         const CoordinateSystem& system, const Options& options,
                         const std::string& scratchName) {
    database.execute("BEGIN");
    if (!hasTable(database, "gpkg_contents")) createPackage(database);
    requireTables(database);
    const std::int32_t srsId = systemOfLayers(database, system);
    createLayers(database, srsId, options.vertices);
    for (const std::string_view layer : {kStringsLayer, kPointsLayer, kVerticesLayer})
        dropIndexTriggers(database, layer);
    for (const ArchiveSource& source : sources) removeArchive(database, source.name);
    ImportCounts counts;
    {
        StringLayers layers{
            database, {srsId, options.nullZ.value_or(kNoElevation)}, options.vertices};
        for (const ArchiveSource& source : sources) {
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

}  // namespace vantelgis::gpkg
