#include <LumoConnection/embedded/sqlite.h>

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>
#include <new>
#include <system_error>

#include <LumoConnection/embedded/collation.h>
#include <LumoConnection/embedded/functions.h>

namespace LumoConnection::Embedded {
namespace {

std::string OneLineOf(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return text;
}

// Why a file could not be opened: what the operating system said, if it was asked.
std::string WhyNotOpened(sqlite3* database, const std::string& file, bool read_only) {
    const sqlite3_vfs* system = sqlite3_vfs_find(nullptr);
    if (system && file.size() + 1 > static_cast<std::size_t>(system->mxPathname)) return "The path is too long";
    int error = sqlite3_system_errno(database);
    if (error == ENOENT && !read_only) {
        // SQLite's last attempt was to read a file that it could not create.
        const auto slash = file.rfind('/');
        const std::string folder = slash == std::string::npos ? "." : file.substr(0, slash + 1);
        if (access(folder.c_str(), W_OK) != 0) error = errno;
    }
    return error != 0 ? std::system_category().message(error) : OneLineOf(sqlite3_errmsg(database));
}

[[noreturn]] void RefuseFile(const std::string& file, const std::string& why) {
    Refuse(Refused::kCannotOpen, "The file '" + file + "' " + why + ".");
}

std::int64_t BigEndian(const std::array<unsigned char, 100>& bytes, std::size_t at) {
    std::int64_t value = 0;
    for (std::size_t i = 0; i < 4; ++i) value = value * 256 + bytes[at + i];
    return value;
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
            if (!text) throw std::bad_alloc();
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

SqliteConnection::SqliteConnection(const std::string& file, bool sync_full, int timeout_seconds, Access access) {
    // SQLite takes a name that begins so for an address with options.
    const std::string name = file.starts_with("file:") ? "./" + file : file;
    // A reader, too, shares the files that lie beside the database while it is in use, and takes them away as the last
    // one; so it is the statements that must not write.
    const bool read_only = access == Access::kReadOnly;
    const int code = sqlite3_open_v2(
        name.c_str(), &database_,
        SQLITE_OPEN_READWRITE | (read_only ? 0 : SQLITE_OPEN_CREATE) | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_PRIVATECACHE,
        nullptr);
    if (code != SQLITE_OK) {
        const std::unique_ptr<sqlite3, int (*)(sqlite3*)> closer(database_, sqlite3_close);
        if (code == SQLITE_NOMEM || !database_) throw std::bad_alloc();
        Refuse(Refused::kCannotOpen,
               "The database file '" + file + "' cannot be opened: " + WhyNotOpened(database_, name, read_only) + ".");
    }
    try {
        sqlite3_extended_result_codes(database_, 1);
        CheckHeader(file);
        // A file that turns out to be another program's is left as it is.
        sqlite3_db_config(database_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
        const std::int64_t milliseconds = std::int64_t{timeout_seconds} * 1000;
        sqlite3_busy_timeout(database_,
                             static_cast<int>(std::min<std::int64_t>(milliseconds, std::numeric_limits<int>::max())));
        AddFunctions(*this);
        if (const int added = AddCollation(database_); added != SQLITE_OK) RefuseFailure(added);
        rollback_ = Prepare("ROLLBACK");
        Run("PRAGMA foreign_keys = ON");
        Run("PRAGMA trusted_schema = ON");
        if (read_only) Run("PRAGMA query_only = ON");
        Run(sync_full ? "PRAGMA synchronous = FULL" : "PRAGMA synchronous = NORMAL");
    } catch (...) {
        // It is gone as soon as the statement is, too.
        sqlite3_close_v2(database_);
        throw;
    }
}

SqliteConnection::~SqliteConnection() { sqlite3_close_v2(database_); }

void SqliteConnection::CheckHeader(const std::string& file) {
    sqlite3_file* raw = nullptr;
    sqlite3_file_control(database_, "main", SQLITE_FCNTL_FILE_POINTER, &raw);
    if (!raw || !raw->pMethods) return;
    std::array<unsigned char, 100> header{};
    // What cannot be read, and an empty file, is left to SQLite.
    if (raw->pMethods->xRead(raw, header.data(), 1, 0) != SQLITE_OK) return;
    const int code = raw->pMethods->xRead(raw, header.data(), static_cast<int>(header.size()), 0);
    if (code != SQLITE_OK && code != SQLITE_IOERR_SHORT_READ) return;
    constexpr std::string_view kStart("SQLite format 3", 16);
    if (code != SQLITE_OK || !std::equal(kStart.begin(), kStart.end(), header.begin()))
        RefuseFile(file, "is no database");
    const std::int64_t application = BigEndian(header, 68);
    if (application != 0 && application != kApplication) RefuseFile(file, "is a database of another program");
    const std::int64_t format = BigEndian(header, 60);
    if (application == kApplication && format > kFormat) {
        RefuseFile(file, "was written by a newer version: its format is " + std::to_string(format) + ", known is " +
                             std::to_string(kFormat));
    }
}

void SqliteConnection::TidyUpAtEnd() { sqlite3_db_config(database_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr); }

int SqliteConnection::TakeBack() noexcept {
    if (!InTransaction()) return SQLITE_OK;
    sqlite3_step(rollback_.Get());
    return sqlite3_reset(rollback_.Get());
}

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
        case SQLITE_PROTOCOL:
            Refuse(Refused::kLockTimeout, "Lock request time out period exceeded: another session keeps the database locked.");
        case SQLITE_FULL:
            Refuse(Refused::kFull, "Could not allocate space for the database: the disk is full.");
        case SQLITE_READONLY:
            if (code != SQLITE_READONLY && code != SQLITE_READONLY_DBMOVED) {
                Refuse(Refused::kReadOnly,
                       "The database is read-only: in the folder of its file nothing may be written, which is needed even for reading.");
            }
            Refuse(Refused::kReadOnly, "Failed to update the database because the database is read-only.");
        case SQLITE_IOERR:
            if (code == SQLITE_IOERR_NOMEM) throw std::bad_alloc();
            Refuse(Refused::kReadFailed,
                   "The operating system returned an error while the database file was read or written: " + words +
                       " (" + std::to_string(code) + ").");
        case SQLITE_TOOBIG:
            Refuse(Refused::kTooBig, "A value or a text is longer than the database can hold.");
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
