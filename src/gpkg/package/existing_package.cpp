#include "gpkg/package/existing_package.h"

#include <algorithm>
#include <iterator>

#include <string>

#include "gpkg/package/schema.h"
#include "gpkg/report.h"

namespace vantelgis::gpkg {

namespace {

constexpr std::string_view kOwnTables[] = {kStringsLayer, kPointsLayer, kVerticesLayer,
                                           kIgnoredTable, "layer_styles"};

bool isOwn(std::string_view table) {
    return std::ranges::find(kOwnTables, table) != std::end(kOwnTables);
}

bool hasColumn(Database& database, std::string_view table, std::string_view column) {
    Statement find =
        database.prepare("SELECT 1 FROM pragma_table_info(?1) WHERE name=?2 COLLATE NOCASE");
    find.bind(1, table);
    find.bind(2, column);
    return find.nextRow();
}

}  // namespace

void requirePackage(std::string_view file) {
    Database database = Database::openForReading(file);
    if (!hasTable(database, "gpkg_contents"))
        fail(file, " is an SQLite database but no GeoPackage: it has no table gpkg_contents");
}

void refuseForeignLayers(std::string_view file) {
    std::string foreign;
    try {
        Database database = Database::openForReading(file);
        if (!hasTable(database, "gpkg_contents")) return;
        Statement tables = database.prepare("SELECT table_name FROM gpkg_contents ORDER BY 1");
        while (tables.nextRow())
            if (!isOwn(tables.text(0)))
                foreign += joined(foreign.empty() ? "" : ", ", tables.text(0));
    } catch (const Failure&) {
        return;  // no database that anybody could read layers from
    }
    if (!foreign.empty())
        fail(file, " holds layers that aren't from an archive (", foreign,
             "): --append keeps them, --replace drops them");
}

void requireTables(Database& database) {
    if (!hasTable(database, "gpkg_geometry_columns") || !hasTable(database, "gpkg_spatial_ref_sys"))
        fail(database.file(), " is no whole GeoPackage: a table of it is missing");
    if (!hasTable(database, "gpkg_extensions"))
        database.execute(
            "CREATE TABLE gpkg_extensions (table_name TEXT, column_name TEXT, extension_name TEXT "
            "NOT NULL, definition TEXT NOT NULL, scope TEXT NOT NULL, CONSTRAINT ge_tce UNIQUE "
            "(table_name, column_name, extension_name))");
    for (const std::string_view layer : {kStringsLayer, kPointsLayer, kIgnoredTable})
        if (hasTable(database, layer) && !hasColumn(database, layer, "archive"))
            fail(database.file(), ": its layer ", layer,
                 " is of another program (it has no field archive); write a package of its own");
}

}  // namespace vantelgis::gpkg
