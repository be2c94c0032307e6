#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "gpkg/geometry/shape.h"
#include "gpkg/options.h"
#include "gpkg/package/database.h"
#include "gpkg/to_archive/line_layers.h"

namespace vantelgis::gpkg {

/// A feature as its layer stores it. Views are valid until the next one is read.
struct Feature {
    const LineLayer* layer = nullptr;
    std::int64_t number = 0;
    std::array<std::string_view, kTextAttributes> texts;  ///< empty where there is none
    std::optional<double> chainage;
    std::optional<double> level;
    Shape shape;  ///< without parts where the feature has no geometry

    [[nodiscard]] std::string_view text(Attribute attribute) const {
        return texts[static_cast<std::size_t>(attribute)];
    }
};

/// The features of layers one by one: in the order of the layers and of the features' numbers, or
/// brought into an order in which each model stands together.
class FeatureReader {
  public:
    FeatureReader(Database& database, const std::vector<LineLayer>& layers, const Options& options);

    /// Gives the next feature; false behind the last one. Fails, with its layer and number, at one
    /// whose geometry is damaged or no line. Long texts come as their first kilobyte.
    bool next(Feature& feature);

    /// Starts again, with the features grouped by model in the order in which the models first
    /// come, and sorted by the field that the command line names, or by their number. The order is
    /// made in a temporary table, so that memory doesn't grow with it.
    void startGrouped();

    /// What a feature's model is when none is named.
    [[nodiscard]] std::string_view defaultModel(const LineLayer& layer) const;

  private:
    bool nextInLayers(Feature& feature);
    bool nextGrouped(Feature& feature);
    void take(Statement& row, const LineLayer& layer, Feature& feature);
    void requireOrder(const Feature& feature);
    void countGeometry(std::string_view blob);
    void startGeometries();
    void addToOrder(const LineLayer& layer, std::size_t index);
    [[nodiscard]] std::string selection(const LineLayer& layer) const;
    [[nodiscard]] Statement prepareFiltered(const std::string& select, std::string_view key) const;
    [[nodiscard]] bool sharesNumbers() const;

    Database& database_;
    const std::vector<LineLayer>& layers_;
    const Options& options_;
    std::size_t layer_ = 0;            // the layer being read
    std::optional<Statement> rows_;    // its features, or the order of all
    std::vector<Statement> byNumber_;  // when grouped: a feature of each layer
    std::optional<std::size_t> open_;  // the one of these that holds the present feature
    bool grouped_ = false;
    std::int64_t lastNumber_ = 0;    // in the layer being read
    std::int64_t geometryLeft_ = 0;  // bytes that the geometries still to come can have
};

}  // namespace vantelgis::gpkg
