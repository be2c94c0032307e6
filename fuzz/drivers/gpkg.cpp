#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "drivers/drivers.h"
#include "gpkg/geometry/blob_reader.h"
#include "gpkg/geometry/blob_writer.h"
#include "gpkg/package/database.h"
#include "gpkg/report.h"
#include "gpkg/to_archive/write_archive.h"
#include "gpkg/to_package/fill_package.h"
#include "memory/memory_run.h"

namespace vantelgis::fuzz {

namespace {

using namespace gpkg;
using memory::system;

constexpr std::string_view kArchive = "a.12da";

[[noreturn]] void stopAt(std::string_view why, std::string_view text) {
    std::fprintf(stderr, "%.*s\n%.*s\n", static_cast<int>(why.size()), why.data(),
                 static_cast<int>(text.size()), text.data());
    std::abort();
}

bool sameVertex(const Vertex& a, const Vertex& b) {
    return a.x == b.x && a.y == b.y && (a.z == b.z || (!hasElevation(a) && !hasElevation(b)));
}

// What was read is written as the blobs of this program, part by part, and reads as the same.
void readAndWriteBlob(std::string_view bytes) {
    Shape shape;
    if (readBlob(bytes, shape) != BlobResult::taken) return;
    std::string blob;
    Shape again;
    std::size_t start = 0;
    for (const std::size_t end : shape.partEnds) {
        const std::span<const Vertex> part{shape.vertices.data() + start, end - start};
        composeLine(blob, part, {}, shape.hasZ, {});
        const bool same = readBlob(blob, again) == BlobResult::taken &&
                          std::equal(part.begin(), part.end(), again.vertices.begin(),
                                     again.vertices.end(), sameVertex);
        if (!same) stopAt("A blob reads as another line than was written", blob);
        start = end;
    }
}

// The strings of an archive as a package has them, or nothing when the archive is refused.
std::optional<Database> packageOf(std::string_view archive, const Options& options) {
    Database database = Database::openMemory();
    try {
        fillPackage(database, {{std::string(archive), "a"}}, {}, options, "scratch");
        return database;
    } catch (const Failure&) {
        return std::nullopt;
    }
}

// An archive that is written is one that the reader takes, string for string. Gives what it reads.
std::optional<Database> writeAndRead(Database& database, const Options& options) {
    WriteCounts counts;
    try {
        counts = writeArchive(database, options, std::string(kArchive)).counts;
    } catch (const Failure&) {
        return std::nullopt;
    }
    const std::string text = system.files[std::string(kArchive)];
    std::optional<Database> package = packageOf(kArchive, {});
    if (!package) stopAt("An archive was written that can't be read", text);
    const std::int64_t read =
        package->valueOf("SELECT (SELECT count(*) FROM strings)+(SELECT count(*) FROM points)");
    if (read != counts.strings) stopAt("An archive reads as another number of strings", text);
    return package;
}

// The next text of an input, up to a zero byte.
std::string takeText(std::string_view& bytes) {
    const std::string text{bytes.substr(0, bytes.find('\0'))};
    bytes.remove_prefix(std::min(text.size() + 1, bytes.size()));
    return text;
}

// A sound package with one layer; names, values, condition and geometries are anything.
void writeBuiltPackage(std::string_view bytes) {
    Database database = Database::openMemory();
    Options options;
    try {
        fillPackage(database, {}, {}, {}, {});
        const std::string table = takeText(bytes);
        const std::array<std::string, 2> columns{takeText(bytes), takeText(bytes)};
        options.where = takeText(bytes);
        options.sortField = takeText(bytes);
        options.layers = {table};
        database.execute(joined("CREATE TABLE ", quotedName(table),
                                " (fid INTEGER PRIMARY KEY, geom BLOB, ", quotedName(columns[0]),
                                ", ", quotedName(columns[1]), ", model, z)"));
        Statement list = database.prepare(
            "INSERT INTO gpkg_contents (table_name, data_type) VALUES (?1, 'features')");
        list.bind(1, std::string_view(table));
        list.run();
        list = database.prepare(
            "INSERT INTO gpkg_geometry_columns VALUES (?1, 'geom', 'LINESTRING', 0, 2, 0)");
        list.bind(1, std::string_view(table));
        list.run();
        Statement add = database.prepare(
            joined("INSERT INTO ", quotedName(table), " VALUES (NULL, ?1, ?2, ?3, ?4, ?5)"));
        while (!bytes.empty()) {
            const std::array<std::string, 4> values{takeText(bytes), takeText(bytes),
                                                    takeText(bytes), takeText(bytes)};
            const std::size_t size = std::min<std::size_t>(bytes.size(), 120);
            add.bindBlob(1, bytes.substr(0, size));
            bytes.remove_prefix(size);
            int parameter = 2;
            for (const std::string& value : values) add.bind(parameter++, std::string_view(value));
            add.run();
        }
    } catch (const Failure&) {
        return;
    }
    writeAndRead(database, options);
}

void writeAnyPackage(std::string_view bytes) {
    try {
        Database database = Database::openBytes(bytes);
        writeAndRead(database, {});
    } catch (const Failure&) {
    }
}

// All that 2d and 3d strings can say of the strings of a package.
std::string saidOf(Database& database) {
    std::string all;
    for (const char* layer : {"strings", "points"}) {
        Statement rows = database.prepare(
            joined("SELECT quote(name)||quote(model)||quote(colour)||quote(style)||quote(breakline)"
                   "||quote(chainage)||quote(z)||vertices FROM ",
                   layer, " ORDER BY model, fid"));
        while (rows.nextRow()) all += joined(rows.text(0), "\n");
    }
    return all;
}

// What comes back from an archive that this program wrote comes back again.
void roundTrip(std::string_view bytes, const Options& options) {
    system.files[std::string(kArchive)] = bytes;
    std::optional<Database> first = packageOf(kArchive, options);
    if (!first) return;
    std::optional<Database> second = writeAndRead(*first, {});
    if (!second) return;
    std::optional<Database> third = writeAndRead(*second, {});
    if (!third || saidOf(*second) != saidOf(*third))
        stopAt("A round trip loses something", saidOf(*second));
}

// Small pieces of memory come from a store of the library's own, without locks: half of the time.
[[maybe_unused]] const bool prepared = [] {
    return sqlite3_config(SQLITE_CONFIG_SINGLETHREAD) == SQLITE_OK &&
           sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 512, 4000) == SQLITE_OK;
}();

}  // namespace

void runGpkg(std::string_view bytes) {
    if (bytes.empty()) return;
    const auto mode = static_cast<unsigned char>(bytes.front());
    bytes.remove_prefix(1);
    system = {};
    silenceReports();
    memory::callInMemory([&] {
        Options options;
        options.hip = (mode & 4U) != 0;
        options.vertices = (mode & 8U) != 0;
        switch (mode % 4) {
            case 0: return readAndWriteBlob(bytes);
            case 1: return writeAnyPackage(bytes);
            case 2: return writeBuiltPackage(bytes);
            default: return roundTrip(bytes, options);
        }
    });
}

}  // namespace vantelgis::fuzz
