#include "gpkg/package/schema.h"

#include "gpkg/report.h"
#include "text/characters.h"

namespace vantelgis::gpkg {

namespace {

// "GPKG" in the head of the file, and the version in hundredths of a hundredth.
constexpr const char* kPackageTables = R"(
PRAGMA application_id=1196444487;
PRAGMA user_version=10300;
CREATE TABLE gpkg_spatial_ref_sys (
  srs_name TEXT NOT NULL,
  srs_id INTEGER NOT NULL PRIMARY KEY,
  organization TEXT NOT NULL,
  organization_coordsys_id INTEGER NOT NULL,
  definition TEXT NOT NULL,
  description TEXT);
INSERT INTO gpkg_spatial_ref_sys VALUES
  ('Undefined Cartesian SRS', -1, 'NONE', -1, 'undefined', 'undefined Cartesian coordinates'),
  ('Undefined geographic SRS', 0, 'NONE', 0, 'undefined', 'undefined geographic coordinates'),
  ('WGS 84 geodetic', 4326, 'EPSG', 4326, 'GEOGCS["WGS 84",DATUM["WGS_1984",SPHEROID["WGS 84",)"
                                       R"(6378137,298.257223563,AUTHORITY["EPSG","7030"]],)"
                                       R"(AUTHORITY["EPSG","6326"]],PRIMEM["Greenwich",0,)"
                                       R"(AUTHORITY["EPSG","8901"]],UNIT["degree",)"
                                       R"(0.0174532925199433,AUTHORITY["EPSG","9122"]],)"
                                       R"(AXIS["Latitude",NORTH],AXIS["Longitude",EAST],)"
                                       R"(AUTHORITY["EPSG","4326"]]', 'longitude, latitude');
CREATE TABLE gpkg_contents (
  table_name TEXT NOT NULL PRIMARY KEY,
  data_type TEXT NOT NULL,
  identifier TEXT UNIQUE,
  description TEXT DEFAULT '',
  last_change DATETIME NOT NULL DEFAULT (strftime('%Y-%m-%dT%H:%M:%fZ','now')),
  min_x DOUBLE, min_y DOUBLE, max_x DOUBLE, max_y DOUBLE,
  srs_id INTEGER,
  CONSTRAINT fk_gc_r_srs_id FOREIGN KEY (srs_id) REFERENCES gpkg_spatial_ref_sys(srs_id));
CREATE TABLE gpkg_geometry_columns (
  table_name TEXT NOT NULL,
  column_name TEXT NOT NULL,
  geometry_type_name TEXT NOT NULL,
  srs_id INTEGER NOT NULL,
  z TINYINT NOT NULL,
  m TINYINT NOT NULL,
  CONSTRAINT pk_geom_cols PRIMARY KEY (table_name, column_name),
  CONSTRAINT uk_gc_table_name UNIQUE (table_name),
  CONSTRAINT fk_gc_tn FOREIGN KEY (table_name) REFERENCES gpkg_contents(table_name),
  CONSTRAINT fk_gc_srs FOREIGN KEY (srs_id) REFERENCES gpkg_spatial_ref_sys(srs_id));
CREATE TABLE gpkg_extensions (
  table_name TEXT,
  column_name TEXT,
  extension_name TEXT NOT NULL,
  definition TEXT NOT NULL,
  scope TEXT NOT NULL,
  CONSTRAINT ge_tce UNIQUE (table_name, column_name, extension_name));
)";

struct LayerDefinition {
    std::string_view name;
    std::string_view geometryType;  // empty: a table without geometry
    std::string_view description;
    std::string_view columns;  // behind fid and geometry
};
constexpr std::string_view kStringColumns =
    "name TEXT, model TEXT, type TEXT, colour TEXT, style TEXT, breakline TEXT, chainage DOUBLE, "
    "z DOUBLE, closed BOOLEAN, vertices MEDIUMINT, length_2d DOUBLE, length_3d DOUBLE, "
    "z_min DOUBLE, z_max DOUBLE, line INTEGER, archive TEXT";
constexpr LayerDefinition kLayers[] = {
    {kStringsLayer, "LINESTRING", "the strings of the archives", kStringColumns},
    {kPointsLayer, "POINT", "strings of one vertex", kStringColumns},
    {kIgnoredTable, "", "strings that give no line, and why",
     "type TEXT, name TEXT, line INTEGER, reason TEXT, archive TEXT"},
    {kVerticesLayer, "POINT", "the vertices of the strings",
     "string INTEGER, number MEDIUMINT, chainage DOUBLE, z DOUBLE"},
};

void createLayer(Database& database, const LayerDefinition& layer, std::int32_t srsId) {
    const bool hasGeometry = !layer.geometryType.empty();
    const std::string geometry = hasGeometry ? joined("geom ", layer.geometryType, ", ") : "";
    database.execute(joined("CREATE TABLE ", layer.name,
                            " (fid INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL, ", geometry,
                            layer.columns, ")"));
    database.execute(joined(
        "INSERT INTO gpkg_contents (table_name, data_type, identifier, description, srs_id) "
        "VALUES ('",
        layer.name, "', '", hasGeometry ? "features" : "attributes", "', '", layer.name, "', '",
        layer.description, "', ", hasGeometry ? std::to_string(srsId) : "NULL", ")"));
    if (!hasGeometry) return;
    // Strings without any elevation are plain lines among those with z: 2 stands for "may have".
    database.execute(joined("INSERT INTO gpkg_geometry_columns VALUES ('", layer.name,
                            "', 'geom', '", layer.geometryType, "', ", srsId, ", 2, 0)"));
    database.execute(joined("CREATE VIRTUAL TABLE ", indexTable(layer.name),
                            " USING rtree(id, minx, maxx, miny, maxy)"));
    database.execute(joined(
        "INSERT INTO gpkg_extensions VALUES ('", layer.name,
        "', 'geom', 'gpkg_rtree_index', 'http://www.geopackage.org/spec120/#extension_rtree', "
        "'write-only')"));
}

// What the package says of a system in the words of ISO 19162 stands in a column of an extension,
// which has no default value and so can't be added to the table as it is.
void createWkt2Column(Database& database) {
    if (database.valueOf("SELECT count(*) FROM pragma_table_info('gpkg_spatial_ref_sys') "
                         "WHERE name='definition_12_063'") > 0)
        return;
    database.execute(
        R"(
CREATE TABLE new_spatial_ref_sys (
  srs_name TEXT NOT NULL,
  srs_id INTEGER NOT NULL PRIMARY KEY,
  organization TEXT NOT NULL,
  organization_coordsys_id INTEGER NOT NULL,
  definition TEXT NOT NULL,
  description TEXT,
  definition_12_063 TEXT NOT NULL);
INSERT INTO new_spatial_ref_sys SELECT srs_name, srs_id, organization, organization_coordsys_id,
  definition, description, CASE srs_id WHEN 4326 THEN 'GEODCRS["WGS 84",DATUM["World Geodetic )"
        R"(System 1984",ELLIPSOID["WGS 84",6378137,298.257223563,LENGTHUNIT["metre",1]]],)"
        R"(PRIMEM["Greenwich",0,ANGLEUNIT["degree",0.0174532925199433]],CS[ellipsoidal,2],)"
        R"(AXIS["latitude",north,ORDER[1]],AXIS["longitude",east,ORDER[2]],)"
        R"(ANGLEUNIT["degree",0.0174532925199433],ID["EPSG",4326]]' ELSE 'undefined' END
  FROM gpkg_spatial_ref_sys;
DROP TABLE gpkg_spatial_ref_sys;
ALTER TABLE new_spatial_ref_sys RENAME TO gpkg_spatial_ref_sys;
INSERT INTO gpkg_extensions VALUES ('gpkg_spatial_ref_sys', 'definition_12_063', 'gpkg_crs_wkt',
  'http://www.geopackage.org/spec120/#extension_crs_wkt', 'read-write');
)");
}

// 0 where the package has no such row.
std::int32_t knownSystem(Database& database, const CoordinateSystem& system) {
    const std::string_view column = system.wkt2 ? "definition_12_063" : "definition";
    Statement find = database.prepare(
        joined("SELECT srs_id FROM gpkg_spatial_ref_sys WHERE ", column,
               "=?1 OR (organization=?2 COLLATE NOCASE AND organization_coordsys_id=?3)"));
    find.bind(1, std::string_view(system.wkt));
    find.bind(2, std::string_view(system.organization));
    find.bind(3, std::int64_t{system.code});
    return find.nextRow() ? static_cast<std::int32_t>(find.integer(0)) : 0;
}

std::int32_t freeNumber(Database& database, const CoordinateSystem& system) {
    const bool known = sameIgnoringCase(system.organization, "EPSG");
    const std::string taken =
        joined("SELECT count(*) FROM gpkg_spatial_ref_sys WHERE srs_id=", system.code);
    if (known && database.valueOf(taken) == 0) return system.code;
    constexpr std::int32_t kFirstOwn = 100000;
    return static_cast<std::int32_t>(database.valueOf(
        joined("SELECT max(", kFirstOwn, "-1, max(srs_id))+1 FROM gpkg_spatial_ref_sys")));
}

// Some programs keep the count of a layer's features in a table of their own, by triggers that
// didn't run.
void enterCount(Database& database, std::string_view layer) {
    if (!hasTable(database, "gpkg_ogr_contents")) return;
    Statement enter =
        database.prepare(joined("UPDATE gpkg_ogr_contents SET feature_count=(SELECT count(*) FROM ",
                                quotedName(layer), ") WHERE table_name=?1 COLLATE NOCASE"));
    enter.bind(1, layer);
    enter.run();
}

}  // namespace

std::string indexTable(std::string_view layer) {
    return joined("rtree_", layer, "_geom");
}

void createPackage(Database& database) {
    database.execute(kPackageTables);
}

bool hasTable(Database& database, std::string_view table) {
    Statement find = database.prepare("SELECT 1 FROM sqlite_master WHERE name=?1 COLLATE NOCASE");
    find.bind(1, table);
    return find.nextRow();
}

std::int32_t addCoordinateSystem(Database& database, const CoordinateSystem& system) {
    if (system.wkt.empty()) return kUndefinedCartesian;
    if (system.wkt2) createWkt2Column(database);
    if (const std::int32_t known = knownSystem(database, system); known != 0) return known;
    const std::int32_t number = freeNumber(database, system);
    Statement add = database.prepare(
        joined("INSERT INTO gpkg_spatial_ref_sys (srs_name, srs_id, organization, "
               "organization_coordsys_id, definition",
               system.wkt2 ? ", definition_12_063) VALUES (?1, ?2, ?3, ?4, 'undefined', ?5)"
                           : ") VALUES (?1, ?2, ?3, ?4, ?5)"));
    const bool named = !system.organization.empty();
    const std::string_view organization =
        named ? std::string_view(system.organization) : std::string_view("NONE");
    add.bind(1, std::string_view(system.name));
    add.bind(2, std::int64_t{number});
    add.bind(3, organization);
    add.bind(4, std::int64_t{named ? system.code : number});
    add.bind(5, std::string_view(system.wkt));
    add.run();
    return number;
}

void createLayers(Database& database, std::int32_t srsId, bool withVertices) {
    for (const LayerDefinition& layer : kLayers) {
        const bool wanted = layer.name != kVerticesLayer || withVertices;
        if (wanted && !hasTable(database, layer.name)) createLayer(database, layer, srsId);
    }
}

void enterExtent(Database& database, std::string_view layer, const Box& extent) {
    Statement enter = database.prepare(
        "UPDATE gpkg_contents SET last_change=strftime('%Y-%m-%dT%H:%M:%fZ','now'), min_x=?2, "
        "min_y=?3, max_x=?4, max_y=?5 WHERE table_name=?1 COLLATE NOCASE");
    enter.bind(1, layer);
    if (!extent.empty()) {
        int parameter = 2;
        for (const double bound : {extent.minX, extent.minY, extent.maxX, extent.maxY})
            enter.bind(parameter++, bound);
    }
    enter.run();
    enterCount(database, layer);
}

}  // namespace vantelgis::gpkg
