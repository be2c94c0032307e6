#pragma once

#include <sqlite3.h>

#include <string>
#include <string_view>

#include "bare/files.h"

// SQLite as the loops use it.
namespace bench {

inline void require(bool done, const char* what) {
    if (!done) giveUp(what);
}

class Database {
  public:
    Database(const std::string& name, int flags) {
        sqlite3_config(SQLITE_CONFIG_SINGLETHREAD);
        sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
        require(sqlite3_open_v2(name.c_str(), &database_, flags | SQLITE_OPEN_NOMUTEX, nullptr) ==
                    SQLITE_OK,
                "can't open a package");
    }
    ~Database() { sqlite3_close(database_); }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    void execute(const char* sql) {
        require(sqlite3_exec(database_, sql, nullptr, nullptr, nullptr) == SQLITE_OK, sql);
    }
    [[nodiscard]] sqlite3_stmt* prepare(const char* sql) {
        sqlite3_stmt* statement = nullptr;
        require(sqlite3_prepare_v3(database_, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement,
                                   nullptr) == SQLITE_OK,
                sql);
        return statement;
    }

  private:
    sqlite3* database_ = nullptr;
};

}  // namespace bench
