#include "gpkg/to_archive/line_layers.h"

#include <algorithm>
#include <functional>
#include <set>

#include "gpkg/package/schema.h"
#include "gpkg/report.h"
#include "text/characters.h"

namespace vantelgis::gpkg {

namespace {

// A feature layer as the package lists it.
struct ListedLayer {
    std::string table;
    std::string geometryColumn;
    std::string geometryType;
    std::int32_t srsId = 0;
};

struct Column {
    std::string name;
    bool isKey = false;
};

constexpr int kMostLayers = 5000;

std::vector<ListedLayer> listLayers(Database& database) {
    std::vector<ListedLayer> layers;
    for (const char* const table : {"gpkg_contents", "gpkg_geometry_columns"})
        if (database.valueOf(joined("SELECT 1 FROM ", table, " LIMIT 1 OFFSET ", kMostLayers)) != 0)
            fail(database.file(), " lists more than ", kMostLayers, " layers");
    Statement list = database.prepare(
        "SELECT g.table_name, g.column_name, g.geometry_type_name, g.srs_id FROM "
        "gpkg_geometry_columns g JOIN gpkg_contents c ON c.table_name=g.table_name COLLATE NOCASE "
        "WHERE c.data_type='features' ORDER BY c.rowid");
    std::set<std::string, std::less<>> names;
    while (list.nextRow()) {
        layers.push_back({std::string(list.text(0)), std::string(list.text(1)),
                          std::string(list.text(2)), static_cast<std::int32_t>(list.integer(3))});
        if (!names.insert(layers.back().table).second)
            fail(database.file(), " is damaged: it lists the layer ", layers.back().table,
                 " twice");
    }
    return layers;
}

std::vector<Column> columnsOf(Database& database, std::string_view table) {
    std::vector<Column> columns;
    Statement list = database.prepare(
        "SELECT name, pk=1 AND upper(type)='INTEGER' AND NOT EXISTS (SELECT 1 FROM "
        "pragma_table_info(?1) WHERE pk>1) FROM pragma_table_info(?1)");
    list.bind(1, table);
    while (list.nextRow()) columns.push_back({std::string(list.text(0)), list.integer(1) != 0});
    return columns;
}

const Column* findColumn(const std::vector<Column>& columns, std::string_view name) {
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const Column& column) {
        return sameIgnoringCase(column.name, name);
    });
    return found == columns.end() ? nullptr : &*found;
}

// Why a layer can't be read; empty when it can. What a view or a virtual table gives is made by
// text of the package, which isn't run.
std::string hindrance(Database& database, const ListedLayer& layer) {
    Statement find = database.prepare(
        "SELECT type='table', sql LIKE 'CREATE VIRTUAL%' FROM sqlite_master WHERE name=?1 COLLATE "
        "NOCASE AND type IN ('table', 'view')");
    find.bind(1, std::string_view(layer.table));
    if (!find.nextRow()) return "its table isn't there";
    if (find.integer(0) == 0) return "it is a view; save it as a layer of its own first";
    if (find.integer(1) != 0) return "it is a virtual table; save it as a layer of its own first";
    return {};
}

bool holdsLines(const ListedLayer& layer) {
    constexpr std::string_view kOthers[] = {"POINT", "MULTIPOINT", "GEOMETRYCOLLECTION"};
    return std::ranges::none_of(kOthers, [&](std::string_view other) {
        return sameIgnoringCase(layer.geometryType, other);
    });
}

LineLayer lineLayer(Database& database, const ListedLayer& listed, const Options& options) {
    LineLayer layer;
    layer.table = listed.table;
    layer.srsId = listed.srsId;
    layer.key = "rowid";
    const std::vector<Column> columns = columnsOf(database, listed.table);
    const Column* const geometry = findColumn(columns, listed.geometryColumn);
    if (geometry == nullptr)
        fail(database.file(), ": the layer ", listed.table, " has no column ",
             listed.geometryColumn);
    layer.geometryColumn = geometry->name;
    for (const Column& column : columns)
        if (column.isKey) layer.key = column.name;
    for (std::size_t i = 0; i < kAttributes; ++i)
        if (const Column* const column = findColumn(columns, kAttributeNames[i]))
            layer.columns[i] = column->name;
    for (const FieldChoice& choice : options.fields) {
        const auto attribute = static_cast<std::size_t>(
            std::find(kAttributeNames, kAttributeNames + kAttributes, choice.attribute) -
            kAttributeNames);
        const Column* const column = findColumn(columns, choice.field);
        if (column == nullptr)
            fail(database.file(), ": the layer ", listed.table, " has no field ", choice.field);
        layer.columns[attribute] = column->name;
    }
    layer.ownPoints = !holdsLines(listed) && listed.table == kPointsLayer &&
                      findColumn(columns, "archive") != nullptr &&
                      findColumn(columns, "line") != nullptr;
    return layer;
}

bool hasRows(Database& database, std::string_view table) {
    return database.valueOf(joined("SELECT 1 FROM ", quotedName(table), " LIMIT 1")) != 0;
}

std::string namesOf(const std::vector<ListedLayer>& listed) {
    std::string names;
    for (const ListedLayer& layer : listed)
        names += joined(names.empty() ? "" : ", ", layer.table, " (", layer.geometryType, ")");
    return names.empty() ? "none" : names;
}

std::vector<LineLayer> namedLayers(Database& database, const std::vector<ListedLayer>& listed,
                                   const Options& options) {
    std::vector<LineLayer> layers;
    for (const std::string& name : options.layers) {
        const auto found = std::find_if(
            listed.begin(), listed.end(),
            [&](const ListedLayer& layer) { return sameIgnoringCase(layer.table, name); });
        if (found == listed.end())
            fail(database.file(), " has no layer ", name, "; it has: ", namesOf(listed));
        if (const std::string why = hindrance(database, *found); !why.empty())
            fail(database.file(), ": the layer ", name, " can't be read: ", why);
        layers.push_back(lineLayer(database, *found, options));
    }
    return layers;
}

std::vector<LineLayer> allLineLayers(Database& database, const std::vector<ListedLayer>& listed,
                                     const Options& options) {
    std::vector<LineLayer> layers;
    for (const ListedLayer& each : listed) {
        const bool ofThisProgram = each.table == kPointsLayer || each.table == kVerticesLayer;
        if (!holdsLines(each) && !ofThisProgram) {
            reportNote(joined("the layer ", each.table, " (", each.geometryType,
                              ") holds no lines and is left out"));
        } else if (const std::string why = hindrance(database, each); !why.empty()) {
            fail(database.file(), ": the layer ", each.table, " can't be read: ", why,
                 ". --layer names those that are to be taken");
        } else if (LineLayer layer = lineLayer(database, each, options);
                   holdsLines(each) || (layer.ownPoints && hasRows(database, each.table))) {
            layers.push_back(std::move(layer));
        }
    }
    return layers;
}

// The system's own text, or what the extension for newer text has.
CoordinateSystem storedSystem(Database& database, std::int32_t srsId) {
    CoordinateSystem system;
    const bool hasNewer =
        database.valueOf(
            "SELECT count(*) FROM pragma_table_info('gpkg_spatial_ref_sys') WHERE "
            "name='definition_12_063'") > 0;
    Statement find =
        database.prepare(joined("SELECT definition, ", hasNewer ? "definition_12_063" : "''",
                                " FROM gpkg_spatial_ref_sys WHERE srs_id=?1"));
    find.bind(1, std::int64_t{srsId});
    if (!find.nextRow()) return system;
    if (readWkt(find.text(0), system) || readWkt(find.text(1), system)) return system;
    return {};
}

}  // namespace

std::vector<LineLayer> chooseLayers(Database& database, const Options& options) {
    for (const char* const table :
         {"gpkg_contents", "gpkg_geometry_columns", "gpkg_spatial_ref_sys"})
        if (!hasTable(database, table))
            fail(database.file(),
                 " is an SQLite database but no whole GeoPackage: it has no table ", table);
    const std::vector<ListedLayer> listed = listLayers(database);
    std::vector<LineLayer> layers = options.layers.empty()
                                        ? allLineLayers(database, listed, options)
                                        : namedLayers(database, listed, options);
    if (layers.empty())
        fail(database.file(), " has no layer of lines or polygons; its layers: ", namesOf(listed));
    return layers;
}

CoordinateSystem systemOfLayers(Database& database, const std::vector<LineLayer>& layers,
                                const Options& options) {
    const LineLayer& first = layers.front();
    for (const LineLayer& layer : layers)
        if (layer.srsId != first.srsId)
            fail(database.file(), ": the layers ", first.table, " and ", layer.table,
                 " are in two coordinate systems. Bring them into one, or take them one by one "
                 "with --layer");
    CoordinateSystem system = storedSystem(database, first.srsId);
    if (system.wkt.empty()) {
        reportNote(
            "the coordinate system of the package is undefined; the coordinates are taken "
            "as they are");
    } else if (system.geographic && !options.degrees) {
        fail(database.file(), ": the layer ", first.table, " is in \"", system.name,
             "\", whose coordinates are degrees, and an archive holds metres. Save it in a "
             "projected system first (QGIS: Export, Save Features As), or take the degrees as they "
             "are with --degrees");
    }
    return system;
}

}  // namespace vantelgis::gpkg
