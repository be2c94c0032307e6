#include "gpkg/package/string_layers.h"

#include <algorithm>
#include <cmath>

#include "gpkg/package/schema.h"
#include "gpkg/package/styles.h"
#include "gpkg/report.h"

namespace vantelgis::gpkg {

namespace {

constexpr std::string_view kStringColumns =
    "fid, geom, name, model, type, colour, style, breakline, chainage, z, closed, vertices, "
    "length_2d, length_3d, z_min, z_max, line, archive";
constexpr int kStringParameters = 18;
constexpr std::string_view kVertexColumns = "fid, geom, string, number, chainage, z";
constexpr int kVertexParameters = 6;

// "?,?,?"
std::string placeholders(int count) {
    std::string text = "?";
    while (--count > 0) text += ",?";
    return text;
}

void bindText(Statement& statement, int parameter, std::string_view text) {
    if (text.empty()) {
        statement.bindNull(parameter);
    } else {
        statement.bind(parameter, text);
    }
}

void bindNumber(Statement& statement, int parameter, std::optional<double> number) {
    if (number) {
        statement.bind(parameter, *number);
    } else {
        statement.bindNull(parameter);
    }
}

std::int64_t lastFidOf(Database& database, std::string_view layer) {
    return database.valueOf(joined("SELECT max(fid) FROM ", layer));
}

// The index rounds its numbers outwards to 32 bits.
Box extentOf(Database& database, std::string_view layer) {
    Box extent;
    Statement bounds = database.prepare(
        joined("SELECT min(minx), min(miny), max(maxx), max(maxy) FROM ", indexTable(layer)));
    if (!bounds.nextRow() || bounds.isNull(0)) return extent;
    extent.add(bounds.real(0), bounds.real(1));
    extent.add(bounds.real(2), bounds.real(3));
    return extent;
}

}  // namespace

void removeArchive(Database& database, std::string_view archive) {
    const auto remove = [&](const std::string& sql) {
        Statement statement = database.prepare(sql);
        statement.bind(1, archive);
        statement.run();
    };
    const bool hasVertices = hasTable(database, kVerticesLayer);
    for (const std::string_view layer : {kStringsLayer, kPointsLayer}) {
        const std::string fids = joined("(SELECT fid FROM ", layer, " WHERE archive=?1)");
        if (hasVertices) {
            remove(joined("DELETE FROM ", indexTable(kVerticesLayer),
                          " WHERE id IN (SELECT fid FROM vertices WHERE string IN ", fids, ")"));
            remove(joined("DELETE FROM vertices WHERE string IN ", fids));
        }
        remove(joined("DELETE FROM ", indexTable(layer), " WHERE id IN ", fids));
        remove(joined("DELETE FROM ", layer, " WHERE archive=?1"));
    }
    remove("DELETE FROM ignored WHERE archive=?1");
}

StringLayers::Layer StringLayers::layerOf(std::string_view name, std::string_view columns,
                                          int parameters) {
    return {name,
            database_.prepare(joined("INSERT INTO ", name, " (", columns, ") VALUES (",
                                     placeholders(parameters), ")")),
            database_.prepare(joined("INSERT INTO ", indexTable(name), " VALUES (?,?,?,?,?)")),
            extentOf(database_, name), lastFidOf(database_, name)};
}

StringLayers::StringLayers(Database& database, const BlobForm& form, bool withVertices)
    : database_(database),
      form_(form),
      strings_(layerOf(kStringsLayer, kStringColumns, kStringParameters)),
      points_(layerOf(kPointsLayer, kStringColumns, kStringParameters)),
      ignored_(database.prepare("INSERT INTO ignored (type, name, line, reason, archive) "
                                "VALUES (?,?,?,?,?)")),
      lastFid_(std::max(strings_.lastFid, points_.lastFid)) {
    if (withVertices) vertices_ = layerOf(kVerticesLayer, kVertexColumns, kVertexParameters);
}

void StringLayers::beginArchive(std::string_view archive) {
    archive_ = archive;
    strings_.add.bind(kStringParameters, std::string_view(archive_));
    points_.add.bind(kStringParameters, std::string_view(archive_));
    ignored_.bind(5, std::string_view(archive_));
}

void StringLayers::addToIndex(Statement& statement, std::int64_t fid, const Box& box) {
    statement.bind(1, fid);
    statement.bind(2, box.minX);
    statement.bind(3, box.maxX);
    statement.bind(4, box.minY);
    statement.bind(5, box.maxY);
    statement.run();
}

void StringLayers::addFeature(Statement& statement, const StringRow& row, std::int64_t vertices) {
    statement.bind(1, lastFid_);
    statement.bindBlob(2, blob_);
    int parameter = 3;
    for (const std::string* text :
         {&row.name, &row.model, &row.type, &row.colour, &row.style, &row.breakline})
        bindText(statement, parameter++, *text);
    bindNumber(statement, 9, row.chainage);
    bindNumber(statement, 10, row.level);
    statement.bind(11, std::int64_t{row.closed});
    statement.bind(12, vertices);
    statement.bind(13, row.length2d);
    bindNumber(statement, 14, row.length3d);
    bindNumber(statement, 15, row.zMin);
    bindNumber(statement, 16, row.zMax);
    statement.bind(17, row.line);
    statement.run();
}

void StringLayers::addString(const StringRow& row, std::span<const Vertex> vertices, const Box& box,
                             bool withZ) {
    Layer& layer = vertices.size() > 1 ? strings_ : points_;
    if (vertices.size() > 1) {
        composeLine(blob_, vertices, box, withZ, form_);
    } else {
        composePoint(blob_, vertices.front(), withZ, form_);
    }
    ++lastFid_;
    addFeature(layer.add, row, static_cast<std::int64_t>(vertices.size()));
    addToIndex(layer.index, lastFid_, box);
    layer.extent.add(box);
    if (vertices_) addVertices(row, vertices, withZ);
}

void StringLayers::addVertices(const StringRow& row, std::span<const Vertex> vertices, bool withZ) {
    Statement& add = vertices_->add;
    double chainage = row.chainage.value_or(0);
    const Vertex* previous = &vertices.front();
    std::int64_t number = 0;
    for (const Vertex& vertex : vertices) {
        Box box;
        box.add(vertex.x, vertex.y);
        const double dx = vertex.x - previous->x;
        const double dy = vertex.y - previous->y;
        chainage += std::sqrt(dx * dx + dy * dy);
        composePoint(blob_, vertex, withZ, form_);
        add.bind(1, ++vertices_->lastFid);
        add.bindBlob(2, blob_);
        add.bind(3, lastFid_);
        add.bind(4, ++number);
        add.bind(5, chainage);
        const auto own = hasElevation(vertex) ? std::optional(vertex.z) : row.level;
        bindNumber(add, 6, own);
        add.run();
        addToIndex(vertices_->index, vertices_->lastFid, box);
        vertices_->extent.add(box);
        previous = &vertex;
    }
}

void StringLayers::addIgnored(const IgnoredRow& row) {
    bindText(ignored_, 1, row.type);
    bindText(ignored_, 2, row.name);
    ignored_.bind(3, row.line);
    ignored_.bind(4, row.reason);
    ignored_.run();
}

void StringLayers::finish() {
    for (const Layer* layer : {&strings_, &points_, vertices_ ? &*vertices_ : nullptr})
        if (layer != nullptr) enterExtent(database_, layer->name, layer->extent);
    enterExtent(database_, kIgnoredTable, {});
    enterStyles(database_);
}

}  // namespace vantelgis::gpkg
