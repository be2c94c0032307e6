#include "gpkg/package/database.h"

#include <sqlite3.h>

#include <charconv>
#include <limits>

#include "gpkg/platform.h"
#include "gpkg/report.h"

namespace vantelgis::gpkg {

namespace {

// What the user can do about it, where SQLite's own words don't say so.
struct Reason {
    int code;
    std::string_view words;
};
constexpr Reason kReasons[] = {
    {SQLITE_BUSY, "is locked by another program; close it there, then run again"},
    {SQLITE_LOCKED, "is locked by another program; close it there, then run again"},
    {SQLITE_NOTADB, "is no SQLite database, and so no GeoPackage"},
    {SQLITE_CORRUPT, "is damaged"},
    {SQLITE_FULL, "can't be written: the disk is full"},
    {SQLITE_TOOBIG, "holds a value that is too large"},
    {SQLITE_NOMEM, "needs more memory than there is"},
    {SQLITE_CANTOPEN, "can't be opened"},
    {SQLITE_CONSTRAINT, "holds rows that contradict each other"},
};

[[noreturn]] void failFor(sqlite3* database, int result, std::string_view file) {
    const std::string own = database != nullptr ? sqlite3_errmsg(database) : sqlite3_errstr(result);
    for (const Reason& reason : kReasons)
        if (reason.code == (result & 0xff)) fail(file, " ", reason.words, " (", own, ")");
    fail(file, ": ", own);
}

constexpr int lengthOf(std::string_view bytes) {
    return bytes.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())
               ? std::numeric_limits<int>::max()
               : static_cast<int>(bytes.size());
}

// A column is looked up once, as there are many: what that gives is no safe ground for several
// threads, of which there are none. The pointer of a text has to be asked for first: the conversion
// to text gives the length.
std::string_view textOf(sqlite3_value* value) {
    const unsigned char* const bytes = sqlite3_value_text(value);
    if (bytes == nullptr) return {};
    return {reinterpret_cast<const char*>(bytes),
            static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

std::optional<double> numberOf(std::string_view text) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

}  // namespace

std::string quotedName(std::string_view name) {
    std::string quoted{'"'};
    for (const char c : name) quoted.append(c == '"' ? 2 : 1, c);
    return quoted += '"';
}

void Statement::Finalizer::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

void Statement::require(int result) const {
    if (result != SQLITE_OK) failFor(sqlite3_db_handle(statement_.get()), result, file_);
}

void Statement::bind(int parameter, std::int64_t value) {
    require(sqlite3_bind_int64(statement_.get(), parameter, value));
}

void Statement::bind(int parameter, double value) {
    require(sqlite3_bind_double(statement_.get(), parameter, value));
}

void Statement::bind(int parameter, std::string_view text) {
    require(
        sqlite3_bind_text(statement_.get(), parameter, text.data(), lengthOf(text), SQLITE_STATIC));
}

void Statement::bindBlob(int parameter, std::string_view bytes) {
    require(sqlite3_bind_blob(statement_.get(), parameter, bytes.data(), lengthOf(bytes),
                              SQLITE_STATIC));
}

void Statement::bindNull(int parameter) {
    require(sqlite3_bind_null(statement_.get(), parameter));
}

bool Statement::nextRow() {
    const int result = sqlite3_step(statement_.get());
    if (result == SQLITE_ROW) return true;
    const int ended = sqlite3_reset(statement_.get());
    if (result != SQLITE_DONE) require(ended != SQLITE_OK ? ended : result);
    return false;
}

void Statement::reset() {
    sqlite3_reset(statement_.get());
}

int Statement::columns() const {
    return sqlite3_column_count(statement_.get());
}

bool Statement::isNull(int column) const {
    return sqlite3_column_type(statement_.get(), column) == SQLITE_NULL;
}

std::int64_t Statement::integer(int column) const {
    return sqlite3_column_int64(statement_.get(), column);
}

double Statement::real(int column) const {
    return sqlite3_column_double(statement_.get(), column);
}

std::optional<double> Statement::number(int column) const {
    sqlite3_value* const value = sqlite3_column_value(statement_.get(), column);
    const int type = sqlite3_value_type(value);
    if (type == SQLITE_NULL) return std::nullopt;
    if (type == SQLITE_INTEGER || type == SQLITE_FLOAT) return sqlite3_value_double(value);
    return numberOf(textOf(value));
}

std::string_view Statement::text(int column) const {
    return textOf(sqlite3_column_value(statement_.get(), column));
}

std::string_view Statement::blob(int column) const {
    sqlite3_value* const value = sqlite3_column_value(statement_.get(), column);
    const void* const bytes = sqlite3_value_blob(value);
    if (bytes == nullptr) return {};
    return {static_cast<const char*>(bytes), static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

void Database::Closer::operator()(sqlite3* database) const {
    sqlite3_close_v2(database);
}

Database::Database(std::string_view file, std::string_view name, int flags) : file_(file) {
    // Nobody else is in the process, and nobody asks how much memory is taken: no locks for that.
    [[maybe_unused]] static const int configured =
        sqlite3_config(SQLITE_CONFIG_SINGLETHREAD) | sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    sqlite3* opened = nullptr;
    const int result =
        sqlite3_open_v2(std::string(name).c_str(), &opened, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    database_.reset(opened);
    if (result != SQLITE_OK) failFor(opened, result, file_);
    // A name in double quotes that isn't there is a mistake, not a text.
    sqlite3_db_config(opened, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
}

Database Database::openForReading(std::string_view file) {
    Database database{file, platform::databaseName(file), SQLITE_OPEN_READONLY};
    database.distrust();
    return database;
}

Database Database::openBytes(std::string_view bytes) {
    Database database{"the package", ":memory:", SQLITE_OPEN_READWRITE};
    const auto size = static_cast<sqlite3_int64>(bytes.size());
    // SQLite doesn't write to a read-only image, so that its bytes may be constant.
    auto* image = reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data()));
    const int result = sqlite3_deserialize(database.database_.get(), "main", image, size, size,
                                           SQLITE_DESERIALIZE_READONLY);
    if (result != SQLITE_OK) failFor(database.database_.get(), result, database.file_);
    database.distrust();
    return database;
}

Database Database::openMemory() {
    return {"the package", ":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE};
}

Database Database::openScratch(std::string_view file) {
    Database database{file, platform::databaseName(file),
                      SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE};
    database.execute(
        "PRAGMA locking_mode=EXCLUSIVE; PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF;"
        "PRAGMA cache_size=-24000; PRAGMA trusted_schema=OFF");
    // What a package brings along doesn't run when rows are added to it.
    sqlite3_db_config(database.database_.get(), SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(database.database_.get(), SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    return database;
}

void Database::distrust() {
    sqlite3* const database = database_.get();
    sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    constexpr int kLargestValue = 512 * 1024 * 1024;
    sqlite3_limit(database, SQLITE_LIMIT_LENGTH, kLargestValue);
    sqlite3_busy_timeout(database, 2000);
    execute(
        "PRAGMA trusted_schema=OFF; PRAGMA cell_size_check=ON; PRAGMA mmap_size=0;"
        "PRAGMA cache_size=-8000");
    static_cast<void>(valueOf("SELECT count(*) FROM sqlite_master"));
}

void Database::execute(const std::string& sql) {
    const int result = sqlite3_exec(database_.get(), sql.c_str(), nullptr, nullptr, nullptr);
    if (result != SQLITE_OK) failFor(database_.get(), result, file_);
}

Statement Database::prepare(std::string_view sql) {
    sqlite3_stmt* prepared = nullptr;
    const char* rest = nullptr;
    const int result = sqlite3_prepare_v3(database_.get(), sql.data(), lengthOf(sql),
                                          SQLITE_PREPARE_PERSISTENT, &prepared, &rest);
    Statement statement;
    statement.statement_.reset(prepared);
    statement.file_ = file_;
    if (result != SQLITE_OK) failFor(database_.get(), result, file_);
    if (rest != sql.data() + sql.size()) fail(file_, ": more than one statement");
    return statement;
}

std::int64_t Database::valueOf(std::string_view sql, std::int64_t otherwise) {
    Statement statement = prepare(sql);
    return statement.nextRow() ? statement.integer(0) : otherwise;
}

std::int64_t Database::size() {
    return valueOf("PRAGMA page_count") * valueOf("PRAGMA page_size");
}

void Database::close() {
    sqlite3* const database = database_.release();
    const int result = sqlite3_close(database);
    if (result != SQLITE_OK) failFor(nullptr, result, file_);
}

}  // namespace vantelgis::gpkg
