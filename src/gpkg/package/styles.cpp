#include "gpkg/package/styles.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "gpkg/package/schema.h"
#include "gpkg/package/style_document.h"
#include "gpkg/report.h"

namespace vantelgis::gpkg {

namespace {

constexpr std::string_view kStyleName = "vantelgis";
constexpr std::size_t kMostClasses = 200;
constexpr std::size_t kMostNotes = 10;

void createStyleTable(Database& database) {
    if (hasTable(database, "layer_styles")) return;
    database.execute(
        "CREATE TABLE layer_styles (id INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL, "
        "f_table_catalog TEXT(256), f_table_schema TEXT(256), f_table_name TEXT(256), "
        "f_geometry_column TEXT(256), styleName TEXT(30), styleQML TEXT, styleSLD TEXT, "
        "useAsDefault BOOLEAN, description TEXT, owner TEXT(30), ui TEXT(30), "
        "update_time DATETIME DEFAULT (strftime('%Y-%m-%dT%H:%M:%fZ','now')));"
        "INSERT INTO gpkg_contents (table_name, data_type, identifier) "
        "VALUES ('layer_styles', 'attributes', 'layer_styles')");
}

// A style that somebody else made the layer's default stays it.
void enterStyle(Database& database, std::string_view layer, std::string_view document) {
    Statement remove =
        database.prepare("DELETE FROM layer_styles WHERE f_table_name=?1 AND styleName=?2");
    remove.bind(1, layer);
    remove.bind(2, kStyleName);
    remove.run();
    Statement add = database.prepare(
        "INSERT INTO layer_styles (f_table_catalog, f_table_schema, f_table_name, "
        "f_geometry_column, styleName, styleQML, styleSLD, useAsDefault, description, owner) "
        "SELECT '', '', ?1, 'geom', ?2, ?3, '', NOT EXISTS (SELECT 1 FROM layer_styles WHERE "
        "f_table_name=?1 AND useAsDefault), 'the colours of the archive', ''");
    add.bind(1, layer);
    add.bind(2, kStyleName);
    add.bind(3, document);
    add.run();
}

std::vector<ColourClass> colourClasses(Database& database, std::string_view layer) {
    std::vector<ColourClass> classes;
    Statement colours =
        database.prepare(joined("SELECT DISTINCT CAST(colour AS TEXT) FROM ", layer,
                                " WHERE colour IS NOT NULL ORDER BY 1 LIMIT ", kMostClasses));
    while (colours.nextRow()) {
        const std::string name{colours.text(0)};
        classes.push_back({name, colourFromName(name)});
    }
    return classes;
}

void noteUnknown(const std::vector<ColourClass>& classes) {
    std::size_t unknown = 0;
    for (const ColourClass& each : classes) {
        if (each.colour || ++unknown > kMostNotes) continue;
        reportNote(
            joined("the colour \"", each.name, "\" is unknown; strings of it are drawn in grey"));
    }
    if (unknown > kMostNotes)
        reportNote(joined(unknown - kMostNotes, " further colours are unknown"));
}

}  // namespace

void enterStyles(Database& database) {
    createStyleTable(database);
    const std::vector<ColourClass> lines = colourClasses(database, kStringsLayer);
    noteUnknown(lines);
    enterStyle(database, kStringsLayer, lineStyle(lines));
    enterStyle(database, kPointsLayer, pointStyle(colourClasses(database, kPointsLayer)));
    if (hasTable(database, kVerticesLayer)) enterStyle(database, kVerticesLayer, vertexStyle());
}

}  // namespace vantelgis::gpkg
