#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <sqlite3.h>

#include <LumoConnection/embedded/refusal.h>
#include <LumoConnection/embedded/value.h>

namespace LumoConnection::Embedded {

class SqliteConnection;

/// What a file of ours says of itself: "Lumo", and the newest format that is read.
inline constexpr std::int64_t kApplication = 0x4C756D6F;
inline constexpr std::int64_t kFormat = 1;

/// A prepared statement.
class SqliteStatement {
  public:
    SqliteStatement() = default;

    explicit operator bool() const { return statement_ != nullptr; }
    sqlite3_stmt* Get() const { return statement_.get(); }

    /// A text is not copied: it has to live until the statement is reset.
    void Bind(int parameter, const Value& value);
    Value Column(int column) const;

    /// True while there is a row. Refuses what goes wrong.
    bool Step(SqliteConnection& connection);
    void Reset() { sqlite3_reset(Get()); }

    /// True if SQLite had to read the text anew since the last call, as another process had changed the schema.
    bool WasReadAnew() { return sqlite3_stmt_status(Get(), SQLITE_STMTSTATUS_REPREPARE, 1) > 0; }

  private:
    friend class SqliteConnection;
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

/// An open file, or a database in memory. Everything that goes wrong is refused.
class SqliteConnection {
  public:
    enum class Access { kReadWrite, kReadOnly };

    /// @param file ":memory:" for one in memory
    SqliteConnection(const std::string& file, bool sync_full, int timeout_seconds, Access access = Access::kReadWrite);
    ~SqliteConnection();
    SqliteConnection(const SqliteConnection&) = delete;
    SqliteConnection& operator=(const SqliteConnection&) = delete;

    sqlite3* Get() const { return database_; }

    SqliteStatement Prepare(std::string_view sql);
    void Run(const char* sql);
    void Run(const std::string& sql) { Run(sql.c_str()); }
    /// The first column of the first row.
    std::int64_t Number(const char* sql);
    /// Takes back the open transaction, if there is one. Gives SQLite's result code.
    int TakeBack() noexcept;
    /// From now on the last connection to the file, when it is closed, moves what was written into the file itself.
    void TidyUpAtEnd();
    std::int64_t Changes() const { return sqlite3_changes64(database_); }
    bool InTransaction() const { return sqlite3_get_autocommit(database_) == 0; }

    /// Refuses with what a function refused while the statement ran, otherwise with what SQLite reports.
    [[noreturn]] void RefuseFailure(int code);

    /// What a function of the dialect refused.
    std::optional<Refusal>& Pending() { return pending_; }

  private:
    /// Refuses a file that is none of SQLite's, or another program's, before SQLite has touched it.
    void CheckHeader(const std::string& file);

    sqlite3* database_ = nullptr;
    SqliteStatement rollback_;
    std::optional<Refusal> pending_;
};

/// A constraint of SQLite that a change violated; carries SQLite's own words and the extended code.
class ConstraintFailure : public Refusal {
  public:
    ConstraintFailure(int code, std::string words) : Refusal(Refused::kStorage, std::move(words)), code_(code) {}
    int Code() const { return code_; }

  private:
    int code_;
};

}  // namespace LumoConnection::Embedded
