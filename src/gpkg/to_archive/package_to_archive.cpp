#include "gpkg/to_archive/package_to_archive.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "gpkg/package/database.h"
#include "gpkg/plain_file.h"
#include "gpkg/report.h"
#include "gpkg/result_file.h"
#include "gpkg/to_archive/archive_strings_writer.h"
#include "gpkg/to_archive/feature_reader.h"
#include "gpkg/to_archive/line_layers.h"
#include "gpkg/transcoding.h"
#include "run/platform.h"
#include "text/paths.h"

namespace vantelgis::gpkg {

namespace {

std::string targetOf(const Options& options) {
    if (!options.output.empty()) return options.output;
    return joined(withoutExtension(options.inputs.front()), ".12da");
}

// Writes the features as they come. False when a model comes back that another one has followed;
// what was written is then worth nothing.
bool writeInOrder(FeatureReader& reader, ArchiveStringsWriter& writer, bool grouped) {
    constexpr std::size_t kMostRemembered = 10'000;
    std::set<std::string, std::less<>> ended;
    std::optional<std::string> model;
    Feature feature;
    while (reader.next(feature)) {
        const std::string_view own = feature.text(Attribute::model);
        if (!model || *model != own) {
            if (!grouped && (ended.contains(own) || ended.size() > kMostRemembered)) return false;
            if (model && !grouped) ended.insert(*model);
            model = own;
            writer.beginModel(own);
        }
        writer.write(feature);
    }
    return true;
}

WriteCounts writeArchive(Database& database, const std::vector<LineLayer>& layers,
                         const Options& options, const std::string& file) {
    FeatureReader reader{database, layers, options};
    bool grouped = !options.sortField.empty();
    for (const LineLayer& layer : layers) grouped = grouped || layer.ownPoints;
    for (;;) {
        if (grouped) reader.startGrouped();
        ArchiveStringsWriter writer{file, database.file()};
        if (writeInOrder(reader, writer, grouped)) {
            if (writer.counts().models == 0) writer.beginModel(reader.defaultModel(layers.front()));
            writer.close();
            return writer.counts();
        }
        grouped = true;
    }
}

void reportCounts(const std::string& target, const WriteCounts& counts) {
    reportChanges(counts.changes);
    if (counts.empty > 0)
        reportWarning(joined(counted(counts.empty, "feature has", "features have"),
                             " no geometry and can't be written"));
    if (counts.droppedZ > 0)
        reportWarning(joined(counted(counts.droppedZ, "feature", "features"),
                             " of type 2d had elevations, which a 2d string can't hold"));
    if (counts.nullLike > 0)
        reportWarning(joined(counted(counts.nullLike, "elevation", "elevations"),
                             " of -999 will be read as missing"));
    reportVerdict(joined(target, ": ", counted(counts.strings, "string", "strings"), " in ",
                         counted(counts.models, "model", "models")));
}

void transcode(const std::string& text, Encoding encoding, const std::string& target) {
    const std::int64_t unknown = transcodeFromUtf8(text, encoding, target);
    if (unknown > 0)
        reportWarning(joined(counted(unknown, "character", "characters"),
                             " that the encoding doesn't know became question marks"));
}

void writeProjection(const CoordinateSystem& system, const std::string& archive) {
    if (system.wkt.empty()) {
        reportNote("no .prj is written: the coordinate system is undefined");
        return;
    }
    ResultFile result{joined(withoutExtension(archive), ".prj")};
    writeWhole(result.scratchName(), system.wkt + "\n");
    result.publish();
}

}  // namespace

void packageToArchive(const Options& options) {
    const std::string& package = options.inputs.front();
    if (!vantelgis::platform::inputExists(package)) fail(package, " isn't there, or is no file");
    Database database = Database::openForReading(package);
    const std::vector<LineLayer> layers = chooseLayers(database, options);
    const CoordinateSystem system = systemOfLayers(database, layers, options);
    const std::string target = targetOf(options);
    WriteCounts counts;
    {
        ResultFile result{target};
        const bool plain =
            options.encoding == Encoding::automatic || options.encoding == Encoding::utf8;
        if (plain) {
            counts = writeArchive(database, layers, options, result.scratchName());
        } else {
            const ScratchFile text{result.scratchName() + ".text"};
            counts = writeArchive(database, layers, options, text.name());
            transcode(text.name(), options.encoding, result.scratchName());
        }
        result.publish();
    }
    if (options.prj) writeProjection(system, target);
    reportCounts(target, counts);
}

}  // namespace vantelgis::gpkg
