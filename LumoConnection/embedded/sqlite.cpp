#include <LumoConnection/embedded/sqlite.h>

#include <algorithm>
#include <limits>
#include <new>

#include <LumoConnection/embedded/collation.h>
#include <LumoConnection/embedded/functions.h>

namespace LumoConnection::Embedded {
namespace {

std::string OneLineOf(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return text;
}

}  // namespace

void SqliteStatement::Bind(int parameter, const Value& value) {
    int code = SQLITE_OK;
    switch (value.form) {
        case Value::Form::kNull:
            code = sqlite3_bind_null(Get(), parameter);
            break;
        case Value::Form::kInteger:
            code = sqlite3_bind_int64(Get(), parameter, value.integer);
            break;
        case Value::Form::kReal:
            code = sqlite3_bind_double(Get(), parameter, value.real);
            break;
        case Value::Form::kText:
            code = sqlite3_bind_text64(Get(), parameter, value.text.empty() ? "" : value.text.data(), value.text.size(),
                                       SQLITE_STATIC, SQLITE_UTF8);
            break;
    }
    if (code == SQLITE_NOMEM) throw std::bad_alloc();
    if (code != SQLITE_OK) Refuse(Refused::kStorage, sqlite3_errstr(code));
}

Value SqliteStatement::Column(int column) const {
    switch (sqlite3_column_type(Get(), column)) {
        case SQLITE_INTEGER:
            return Value::Integer(sqlite3_column_int64(Get(), column));
        case SQLITE_FLOAT:
            return Value::Real(sqlite3_column_double(Get(), column));
        case SQLITE_TEXT: {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(Get(), column));
            return Value::Text({text, static_cast<std::size_t>(sqlite3_column_bytes(Get(), column))});
        }
        default:
            return {};
    }
}

bool SqliteStatement::Step(SqliteConnection& connection) {
    const int code = sqlite3_step(Get());
    if (code == SQLITE_ROW) return true;
    if (code == SQLITE_DONE) return false;
    try {
        connection.RefuseFailure(code);
    } catch (...) {
        Reset();
        throw;
    }
}

SqliteConnection::SqliteConnection(const std::string& file, bool sync_full, int timeout_seconds) {
    const int code = sqlite3_open_v2(
        file.c_str(), &database_,
        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_PRIVATECACHE, nullptr);
    if (code != SQLITE_OK) {
        const std::string words = database_ ? sqlite3_errmsg(database_) : sqlite3_errstr(code);
        sqlite3_close(database_);
        database_ = nullptr;
        if (code == SQLITE_NOMEM) throw std::bad_alloc();
        Refuse(Refused::kCannotOpen, "The database file '" + file + "' cannot be opened: " + OneLineOf(words) + ".");
    }
    try {
        sqlite3_extended_result_codes(database_, 1);
        const std::int64_t milliseconds = std::int64_t{timeout_seconds} * 1000;
        sqlite3_busy_timeout(database_,
                             static_cast<int>(std::min<std::int64_t>(milliseconds, std::numeric_limits<int>::max())));
        AddFunctions(*this);
        AddCollation(database_);
        Run("PRAGMA foreign_keys = ON");
        Run("PRAGMA trusted_schema = ON");
        Run(sync_full ? "PRAGMA synchronous = FULL" : "PRAGMA synchronous = NORMAL");
    } catch (...) {
        sqlite3_close(database_);
        throw;
    }
}

SqliteConnection::~SqliteConnection() { sqlite3_close_v2(database_); }

SqliteStatement SqliteConnection::Prepare(std::string_view sql) {
    SqliteStatement result;
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v3(database_, sql.data(), static_cast<int>(sql.size()), 0, &statement, nullptr);
    result.statement_.reset(statement);
    if (code != SQLITE_OK) RefuseFailure(code);
    return result;
}

void SqliteConnection::Run(const char* sql) {
    SqliteStatement statement = Prepare(sql);
    while (statement.Step(*this)) {
    }
}

std::int64_t SqliteConnection::Number(const char* sql) {
    SqliteStatement statement = Prepare(sql);
    return statement.Step(*this) ? statement.Column(0).integer : 0;
}

void SqliteConnection::RefuseFailure(int code) {
    if (pending_) {
        const Refusal refusal = *pending_;
        pending_.reset();
        throw refusal;
    }
    const std::string words = OneLineOf(sqlite3_errmsg(database_));
    switch (code & 0xFF) {
        case SQLITE_CONSTRAINT:
            throw ConstraintFailure(code, words);
        case SQLITE_NOMEM:
            throw std::bad_alloc();
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            Refuse(Refused::kLockTimeout, "Lock request time out period exceeded: another session keeps the database locked.");
        case SQLITE_FULL:
            Refuse(Refused::kFull, "Could not allocate space for the database: the disk is full.");
        case SQLITE_READONLY:
            Refuse(Refused::kReadOnly, "Failed to update the database because the database is read-only.");
        case SQLITE_IOERR:
            Refuse(Refused::kReadFailed,
                   "The operating system returned an error while the database file was read or written: " + words + ".");
        case SQLITE_CORRUPT:
            Refuse(Refused::kDamaged, "The database file is damaged: " + words + ".");
        case SQLITE_NOTADB:
            Refuse(Refused::kCannotOpen, "The file is no database.");
        case SQLITE_CANTOPEN:
            Refuse(Refused::kCannotOpen, "The database file cannot be opened: " + words + ".");
        default:
            break;
    }
    if (words == "integer overflow") {
        Refuse(Refused::kOverflow, "Arithmetic overflow error converting expression to data type money.");
    }
    if (words.starts_with("Expression tree is too large") || words.find("too many terms") != std::string::npos ||
        words.find("parser stack overflow") != std::string::npos) {
        Refuse(Refused::kTooDeep,
               "Some part of your SQL statement is nested too deeply. Rewrite the query or break it up into smaller queries.");
    }
    Refuse(Refused::kStorage, "SQLite reports: " + words + ".");
}

}  // namespace LumoConnection::Embedded
