#pragma once

#include <sqlite3.h>

#include <cstdlib>
#include <initializer_list>
#include <iostream>
#include <string>

namespace bench {

[[noreturn]] inline void Stop(const std::string& why) {
    std::cerr << why << '\n';
    std::exit(2);
}

/// A database in memory behind the C interface, opened as the embedded one opens its own.
class Raw {
  public:
    explicit Raw(std::initializer_list<const char*> tables) {
        constexpr int kOptions = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_PRIVATECACHE;
        sqlite3_open_v2(":memory:", &database_, kOptions, nullptr);
        for (const char* table : tables) Run(table);
    }
    ~Raw() { sqlite3_close_v2(database_); }
    Raw(const Raw&) = delete;
    Raw& operator=(const Raw&) = delete;

    void Run(const std::string& sql) {
        if (sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
            Stop(sqlite3_errmsg(database_));
    }

    sqlite3_stmt* Prepare(const std::string& sql) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(database_, sql.c_str(), static_cast<int>(sql.size()), &statement, nullptr) != SQLITE_OK)
            Stop(sqlite3_errmsg(database_));
        return statement;
    }

  private:
    sqlite3* database_ = nullptr;
};

inline void Copy(sqlite3_stmt* statement, int column, std::string& to) {
    const auto* text = static_cast<const char*>(static_cast<const void*>(sqlite3_column_text(statement, column)));
    to.assign(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
}

}  // namespace bench
