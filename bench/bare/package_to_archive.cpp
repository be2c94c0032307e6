#include <charconv>
#include <cstdint>

#include "bare/archive_text.h"
#include "bare/loops.h"
#include "bare/package.h"

namespace bench {

namespace {

std::string_view textOf(sqlite3_stmt* row, int column) {
    const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(row, column))};
}

char* putColumn(char* p, std::string_view label, sqlite3_stmt* row, int column) {
    return putText(putText(p, label), textOf(row, column));
}

void putHead(Output& archive, sqlite3_stmt* row) {
    char* p = putColumn(archive.room(), "string ", row, 6);
    p = putColumn(p, " {\r\n  name      \"", row, 1);
    p = putText(p, "\"\r\n  chainage  ");
    p = std::to_chars(p, p + 32, sqlite3_column_double(row, 2)).ptr;
    p = putColumn(p, "\r\n  breakline ", row, 3);
    p = putColumn(p, "\r\n  colour    ", row, 4);
    p = putColumn(p, "\r\n  style     ", row, 5);
    archive.done(putText(p, "\r\n\r\n  data {\r\n"));
}

void putVertices(Output& archive, const char* blob) {
    constexpr std::size_t kCount = 45;  // behind the rectangle and the type of the geometry
    std::uint32_t count;
    std::memcpy(&count, blob + kCount, sizeof count);
    blob += kCount + sizeof count;
    for (; count > 0; --count) {
        double vertex[3];
        std::memcpy(vertex, blob, sizeof vertex);
        blob += sizeof vertex;
        char* p = putText(archive.room(), "    ");
        p = putFixed<16, 5>(p, vertex[0]);
        p = putFixed<16, 5>(p, vertex[1]);
        p = putFixed<12, 4>(p, vertex[2]);
        archive.done(putText(p, "\r\n"));
    }
}

}  // namespace

void packageToArchive(const std::string& in, const std::string& out) {
    Database package(in + ".gpkg", SQLITE_OPEN_READONLY);
    package.execute("PRAGMA locking_mode=EXCLUSIVE");
    sqlite3_stmt* const row = package.prepare(
        "SELECT geom, name, chainage, breakline, colour, style, type, model FROM strings "
        "ORDER BY fid");
    Output archive(out + ".12da");
    std::string model;
    while (sqlite3_step(row) == SQLITE_ROW) {
        const std::string_view own = textOf(row, 7);
        if (own != model) {
            model = own;
            archive.done(putText(putText(putText(archive.room(), "model \""), own), "\"\r\n\r\n"));
        }
        putHead(archive, row);
        putVertices(archive, static_cast<const char*>(sqlite3_column_blob(row, 0)));
        endString(archive);
    }
    sqlite3_finalize(row);
}

}  // namespace bench
