#include "gpkg/to_archive/write_archive.h"

#include <optional>
#include <set>
#include <string_view>
#include <vector>

#include "gpkg/to_archive/feature_reader.h"
#include "gpkg/to_archive/line_layers.h"

namespace vantelgis::gpkg {

namespace {

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

}  // namespace

WrittenArchive writeArchive(Database& database, const Options& options, const std::string& file) {
    const std::vector<LineLayer> layers = chooseLayers(database, options);
    const CoordinateSystem system = systemOfLayers(database, layers, options);
    FeatureReader reader{database, layers, options};
    bool grouped = !options.sortField.empty();
    for (const LineLayer& layer : layers) grouped = grouped || layer.ownPoints;
    for (;;) {
        if (grouped) reader.startGrouped();
        ArchiveStringsWriter writer{file, database.file()};
        if (writeInOrder(reader, writer, grouped)) {
            if (writer.counts().models == 0) writer.beginModel(reader.defaultModel(layers.front()));
            writer.close();
            return {writer.counts(), system};
        }
        grouped = true;
    }
}

}  // namespace vantelgis::gpkg
