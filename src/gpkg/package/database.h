#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace vantelgis::gpkg {

// SQLite as this program uses it. Whatever SQLite refuses ends the run with the file's name and the
// reason in words, see `fail`.

/// `name` as an identifier of SQL, whatever characters it holds.
[[nodiscard]] std::string quotedName(std::string_view name);

/// A prepared statement. Parameters count from 1, columns of a row from 0.
class Statement {
  public:
    void bind(int parameter, std::int64_t value);
    void bind(int parameter, double value);
    /// The bytes must stay until the statement has run.
    void bind(int parameter, std::string_view text);
    void bindBlob(int parameter, std::string_view bytes);
    void bindNull(int parameter);

    /// Goes to the next row; false behind the last one, and the statement is ready for a new run.
    bool nextRow();
    /// Runs a statement that gives no rows.
    void run() {
        while (nextRow()) continue;
    }
    /// Leaves the rows that are left.
    void reset();

    [[nodiscard]] int columns() const;
    [[nodiscard]] bool isNull(int column) const;
    [[nodiscard]] std::int64_t integer(int column) const;
    [[nodiscard]] double real(int column) const;
    /// A number, or a text that is one and no more; nothing where the value is neither.
    [[nodiscard]] std::optional<double> number(int column) const;
    /// The bytes of any value, none of NULL. Views are valid until the next row.
    [[nodiscard]] std::string_view text(int column) const;
    [[nodiscard]] std::string_view blob(int column) const;

  private:
    friend class Database;
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const;
    };
    void require(int result) const;

    std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
    std::string file_;
};

class Database {
  public:
    /// Opens somebody's database to look at it: read-only, with nothing of its schema trusted (no
    /// function of it runs that could do harm, no trigger fires), and fails when it is no database.
    static Database openForReading(std::string_view file);
    /// The same for a database that is held in memory; the bytes must stay.
    static Database openBytes(std::string_view bytes);
    /// An empty database that is nowhere but in memory.
    static Database openMemory();
    /// Opens a file that belongs to this run alone, a new or copied one. Nothing is kept for a
    /// rollback: when the run fails, the file goes.
    static Database openScratch(std::string_view file);

    /// Runs statements that give no rows and have no parameters.
    void execute(const std::string& sql);
    [[nodiscard]] Statement prepare(std::string_view sql);
    /// The first column of the first row as an integer, `otherwise` when there is no row.
    [[nodiscard]] std::int64_t valueOf(std::string_view sql, std::int64_t otherwise = 0);

    /// Closes before the object goes; fails when something could not be written.
    void close();
    /// Bytes of the whole database.
    [[nodiscard]] std::int64_t size();
    [[nodiscard]] const std::string& file() const { return file_; }

  private:
    struct Closer {
        void operator()(sqlite3* database) const;
    };
    Database(std::string_view file, std::string_view name, int flags);
    void distrust();

    std::unique_ptr<sqlite3, Closer> database_;
    std::string file_;
};

}  // namespace vantelgis::gpkg
