#include <string>

#include "gpkg/package/schema.h"
#include "gpkg/report.h"

namespace vantelgis::gpkg {

namespace {

// The published triggers of the spatial index (OGC 12-128r18, annex F.3), with $T for the layer's
// table, $R for its index and $B for the row of bounds.
struct Trigger {
    const char* name;
    const char* rest;
};
constexpr Trigger kTriggers[] = {
    {"insert",
     "AFTER INSERT ON $T WHEN (NEW.geom NOT NULL AND NOT ST_IsEmpty(NEW.geom)) "
     "BEGIN INSERT OR REPLACE INTO $R VALUES ($B); END"},
    {"update1",
     "AFTER UPDATE OF geom ON $T WHEN OLD.fid = NEW.fid AND "
     "(NEW.geom NOTNULL AND NOT ST_IsEmpty(NEW.geom)) "
     "BEGIN INSERT OR REPLACE INTO $R VALUES ($B); END"},
    {"update2",
     "AFTER UPDATE OF geom ON $T WHEN OLD.fid = NEW.fid AND "
     "(NEW.geom ISNULL OR ST_IsEmpty(NEW.geom)) "
     "BEGIN DELETE FROM $R WHERE id = OLD.fid; END"},
    {"update3",
     "AFTER UPDATE ON $T WHEN OLD.fid != NEW.fid AND "
     "(NEW.geom NOTNULL AND NOT ST_IsEmpty(NEW.geom)) "
     "BEGIN DELETE FROM $R WHERE id = OLD.fid; INSERT OR REPLACE INTO $R VALUES ($B); END"},
    {"update4",
     "AFTER UPDATE ON $T WHEN OLD.fid != NEW.fid AND (NEW.geom ISNULL OR ST_IsEmpty(NEW.geom)) "
     "BEGIN DELETE FROM $R WHERE id IN (OLD.fid, NEW.fid); END"},
    {"delete",
     "AFTER DELETE ON $T WHEN OLD.geom NOT NULL BEGIN DELETE FROM $R WHERE id = OLD.fid; END"},
};
constexpr std::string_view kBounds =
    "NEW.fid, ST_MinX(NEW.geom), ST_MaxX(NEW.geom), ST_MinY(NEW.geom), ST_MaxY(NEW.geom)";

std::string filledIn(std::string_view pattern, std::string_view layer) {
    std::string sql;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] != '$') {
            sql += pattern[i];
            continue;
        }
        switch (pattern[++i]) {
            case 'T': sql += layer; break;
            case 'R': sql += indexTable(layer); break;
            default: sql += kBounds;
        }
    }
    return sql;
}

}  // namespace

void dropIndexTriggers(Database& database, std::string_view layer) {
    Statement find = database.prepare(
        "SELECT name FROM sqlite_master WHERE type='trigger' AND tbl_name=?1 COLLATE NOCASE AND "
        "name LIKE 'rtree\\_%' ESCAPE '\\'");
    find.bind(1, layer);
    std::string sql;
    while (find.nextRow()) sql += joined("DROP TRIGGER ", quotedName(find.text(0)), ";");
    database.execute(sql);
}

void createIndexTriggers(Database& database, std::string_view layer) {
    for (const Trigger& trigger : kTriggers)
        database.execute(joined("CREATE TRIGGER ", indexTable(layer), "_", trigger.name, " ",
                                filledIn(trigger.rest, layer)));
}

}  // namespace vantelgis::gpkg
