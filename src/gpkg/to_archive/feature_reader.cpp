#include "gpkg/to_archive/feature_reader.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "gpkg/encoding.h"
#include "gpkg/geometry/blob_reader.h"
#include "gpkg/report.h"

namespace vantelgis::gpkg {

namespace {

// The columns of a row: the attributes from the last one to the first, geometry, number. SQLite
// finds its way through a record only as far as it is asked to; in this program's own layers, which
// have them the other way round, it does so once and not for each column anew.
constexpr int kGeometryColumn = kAttributes;
constexpr int kNumberColumn = kGeometryColumn + 1;

// Of a text, more than an archive can hold and little enough for millions of rows that share one.
constexpr std::size_t kMostOfText = 1000;

constexpr int columnOf(Attribute attribute) {
    return kGeometryColumn - 1 - static_cast<int>(attribute);
}

std::optional<double> numberIn(const Statement& row, Attribute attribute) {
    const std::optional<double> number = row.number(columnOf(attribute));
    return number && std::isfinite(*number) ? number : std::nullopt;
}

}  // namespace

FeatureReader::FeatureReader(Database& database, const std::vector<LineLayer>& layers,
                             const Options& options)
    : database_(database), layers_(layers), options_(options) {
    startGeometries();
}

// No two features share a byte of the file.
void FeatureReader::startGeometries() {
    geometryLeft_ = database_.size() * static_cast<std::int64_t>(layers_.size());
}

std::string_view FeatureReader::defaultModel(const LineLayer& layer) const {
    return options_.model.empty() ? std::string_view(layer.table) : options_.model;
}

std::string FeatureReader::selection(const LineLayer& layer) const {
    std::string columns;
    for (std::size_t i = kAttributes; i-- > 0;)
        columns += layer.columns[i].empty() ? "NULL, " : quotedName(layer.columns[i]) + ", ";
    return joined("SELECT ", columns, quotedName(layer.geometryColumn), ", ", quotedName(layer.key),
                  " FROM ", quotedName(layer.table));
}

// The condition ends in a line of its own, so that a comment in it can't swallow what follows.
Statement FeatureReader::prepareFiltered(const std::string& select, std::string_view key) const {
    const std::string order = joined(" ORDER BY ", quotedName(key));
    if (options_.where.empty()) return database_.prepare(select + order);
    try {
        return database_.prepare(joined(select, " WHERE (", options_.where, "\n)", order));
    } catch (const Failure& failure) {
        fail("--where \"", options_.where, "\": ", failure.text);
    }
}

// In a damaged file a page may be met again and again, or a value go round in its pages: rows and
// bytes without end from a small file.
void FeatureReader::requireOrder(const Feature& feature) {
    if (feature.number <= lastNumber_)
        fail(database_.file(), " is damaged: in the layer ", feature.layer->table, ", feature ",
             feature.number, " comes behind feature ", lastNumber_);
    lastNumber_ = feature.number;
}

void FeatureReader::countGeometry(std::string_view blob) {
    geometryLeft_ -= static_cast<std::int64_t>(blob.size());
    if (geometryLeft_ < 0)
        fail(database_.file(), " is damaged: its geometries are larger than the whole file");
}

void FeatureReader::take(Statement& row, const LineLayer& layer, Feature& feature) {
    feature.layer = &layer;
    feature.number = row.integer(kNumberColumn);
    feature.shape.clear();
    const std::string_view blob = row.blob(kGeometryColumn);
    if (!blob.empty() || !row.isNull(kGeometryColumn)) {
        countGeometry(blob);
        const BlobResult result = readBlob(blob, feature.shape);
        if (result != BlobResult::taken)
            fail(database_.file(), ", layer ", layer.table, ", feature ", feature.number, ": ",
                 wordsOf(result), ". Nothing was written");
    }
    feature.chainage = numberIn(row, Attribute::chainage);
    feature.level = numberIn(row, Attribute::z);
    for (std::size_t i = 0; i < kTextAttributes; ++i) {
        const std::string_view text = row.text(columnOf(static_cast<Attribute>(i)));
        feature.texts[i] = text.size() > kMostOfText ? cutUtf8(text, kMostOfText) : text;
    }
    auto& model = feature.texts[static_cast<std::size_t>(Attribute::model)];
    if (model.empty()) model = defaultModel(layer);
}

bool FeatureReader::next(Feature& feature) {
    return grouped_ ? nextGrouped(feature) : nextInLayers(feature);
}

bool FeatureReader::nextInLayers(Feature& feature) {
    for (; layer_ < layers_.size(); ++layer_, rows_.reset()) {
        const LineLayer& layer = layers_[layer_];
        if (!rows_) {
            rows_ = prepareFiltered(selection(layer), layer.key);
            lastNumber_ = std::numeric_limits<std::int64_t>::min();
        }
        if (!rows_->nextRow()) continue;
        take(*rows_, layer, feature);
        requireOrder(feature);
        return true;
    }
    return false;
}

bool FeatureReader::nextGrouped(Feature& feature) {
    if (open_) byNumber_[*open_].reset();
    open_.reset();
    if (!rows_->nextRow()) return false;
    const auto index = static_cast<std::size_t>(rows_->integer(0));
    Statement& row = byNumber_[index];
    row.bind(1, rows_->integer(1));
    if (!row.nextRow()) fail(database_.file(), " changed while it was read");
    open_ = index;
    take(row, layers_[index], feature);
    return true;
}

// The strings and points of an archive share their numbers, which is its order.
bool FeatureReader::sharesNumbers() const {
    return std::ranges::any_of(layers_, &LineLayer::ownPoints);
}

void FeatureReader::addToOrder(const LineLayer& layer, std::size_t index) {
    const std::string& model = layer.columns[static_cast<std::size_t>(Attribute::model)];
    const std::string sort = quotedName(options_.sortField);
    const std::string key =
        !options_.sortField.empty()
            ? joined("CASE WHEN typeof(", sort, ") IN ('text', 'blob') THEN ", "substr(", sort,
                     ", 1, ", kMostOfText, ") ELSE ", sort, " END")
        : sharesNumbers() ? quotedName(layer.key)
                          : std::string("NULL");
    Statement add = prepareFiltered(
        joined("INSERT INTO temp.features SELECT ", index, ", ", quotedName(layer.key),
               ", coalesce(nullif(substr(CAST(", model.empty() ? "NULL" : quotedName(model),
               " AS TEXT), 1, ", kMostOfText, "), ''), ?1), ", key, " FROM ",
               quotedName(layer.table)),
        layer.key);
    add.bind(1, defaultModel(layer));
    add.run();
}

void FeatureReader::startGrouped() {
    grouped_ = true;
    startGeometries();
    rows_.reset();
    open_.reset();
    byNumber_.clear();
    database_.execute(
        "CREATE TEMP TABLE features (layer INTEGER, number INTEGER, model TEXT, key, "
        "UNIQUE (layer, number))");
    for (std::size_t i = 0; i < layers_.size(); ++i) {
        addToOrder(layers_[i], i);
        byNumber_.push_back(database_.prepare(
            joined(selection(layers_[i]), " WHERE ", quotedName(layers_[i].key), "=?1")));
    }
    database_.execute(
        "CREATE TEMP TABLE sorted AS SELECT layer, number, model FROM temp.features ORDER BY key, "
        "rowid;"
        "CREATE TEMP TABLE models AS SELECT model, min(rowid) AS first FROM temp.sorted GROUP BY "
        "model;"
        "CREATE UNIQUE INDEX temp.models_by_name ON models (model)");
    rows_ = database_.prepare(
        "SELECT s.layer, s.number FROM temp.sorted s JOIN temp.models m ON m.model=s.model ORDER "
        "BY "
        "m.first, s.rowid");
}

}  // namespace vantelgis::gpkg
