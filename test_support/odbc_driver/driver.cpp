// The driver of script.h, with a server of server.h behind it. It calls none of its own entry points: their names belong to the driver manager too.
#include <test_support/odbc_driver/server.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <mutex>
#include <string_view>

namespace {

using odbc_driver::Cell;
using odbc_driver::Column;
using odbc_driver::Message;
using odbc_driver::Result;
using odbc_driver::Script;

Script& TheScript() {
    static Script script;
    return script;
}

// Connections of several threads count, too.
void Count(int Script::*counter, int by) {
    static std::mutex counting;
    const std::lock_guard lock(counting);
    Script& script = TheScript();
    script.*counter += by;
    script.most_statements = std::max(script.most_statements, script.statements);
}

struct Base {
    virtual ~Base() = default;
    std::vector<Message> messages;
    SQLRETURN Say(SQLRETURN code, std::vector<Message> said) {
        messages = std::move(said);
        return code;
    }
    SQLRETURN Refuse(const char* state, const char16_t* text) { return Say(SQL_ERROR, {{state, 0, text}}); }
};

struct Environment : Base {};

struct Connection : Base {
    std::unique_ptr<odbc_driver::Server> server;
};

struct Statement : Base {
    explicit Statement(Connection& of) : connection(of) { Count(&Script::statements, 1); }
    ~Statement() override { Count(&Script::statements, -1); }

    Result* Current() { return at < results.size() ? &results[at] : nullptr; }

    SQLRETURN Reach() {
        row = 0;
        column = 0;
        Result* result = Current();
        if (!result) return SQL_NO_DATA;
        return Say(result->code, result->messages);
    }

    SQLRETURN Fetch() {
        Result* result = Current();
        if (!result || result->columns.empty()) return Refuse("24000", u"[Fake]No rows");
        column = 0;
        if (row < result->rows.size()) {
            ++row;
            return SQL_SUCCESS;
        }
        return Say(result->end_code, result->end_messages);
    }

    SQLRETURN GetData(SQLUSMALLINT number, SQLSMALLINT c_type, SQLPOINTER to, SQLLEN room, SQLLEN* length);

    Connection& connection;
    std::vector<Result> results;
    std::size_t at = 0;
    std::size_t row = 0;      // from 1
    SQLUSMALLINT column = 0;  // the one that pieces are read of
    std::size_t offset = 0;
};

template <class T>
T& As(SQLHANDLE handle) {
    return *static_cast<T*>(static_cast<Base*>(handle));
}

bool IsHigh(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }

template <class T>
SQLRETURN Put(const T& value, SQLPOINTER to, SQLLEN* length) {
    std::memcpy(to, &value, sizeof value);
    *length = sizeof value;
    return SQL_SUCCESS;
}

SQLRETURN Statement::GetData(SQLUSMALLINT number, SQLSMALLINT c_type, SQLPOINTER to, SQLLEN room, SQLLEN* length) {
    Script& script = TheScript();
    if (number < column) return Refuse("07009", u"[Fake]Columns are read from left to right");
    if (number != column) offset = 0;
    const bool again = number == column;
    column = number;
    const Cell& cell = Current()->rows[row - 1][static_cast<std::size_t>(number - 1)];
    if (std::holds_alternative<std::monostate>(cell)) {
        *length = SQL_NULL_DATA;
        return SQL_SUCCESS;
    }
    if (const auto* whole = std::get_if<long long>(&cell)) {
        switch (c_type) {
            case SQL_C_BIT:
            case SQL_C_UTINYINT:
                return Put(static_cast<unsigned char>(*whole), to, length);
            case SQL_C_SSHORT:
                return Put(static_cast<SQLSMALLINT>(*whole), to, length);
            case SQL_C_SLONG:
                return Put(static_cast<SQLINTEGER>(*whole), to, length);
            case SQL_C_SBIGINT:
                return Put(*whole, to, length);
            default:
                return Refuse("07006", u"[Fake]Restricted data type attribute violation");
        }
    }
    if (const auto* real = std::get_if<double>(&cell)) {
        if (c_type == SQL_C_FLOAT) return Put(static_cast<float>(*real), to, length);
        if (c_type == SQL_C_DOUBLE) return Put(*real, to, length);
        return Refuse("07006", u"[Fake]Restricted data type attribute violation");
    }
    if (const auto* moment = std::get_if<SQL_TIMESTAMP_STRUCT>(&cell)) {
        if (c_type == SQL_C_TYPE_TIMESTAMP) return Put(*moment, to, length);
        return Refuse("07006", u"[Fake]Restricted data type attribute violation");
    }
    // In pieces.
    const auto* text = std::get_if<std::u16string>(&cell);
    const auto* bytes = std::get_if<std::vector<unsigned char>>(&cell);
    if (c_type != (text ? SQL_C_WCHAR : SQL_C_BINARY))
        return Refuse("07006", u"[Fake]Restricted data type attribute violation");
    const std::size_t width = text ? sizeof(char16_t) : 1;
    const std::size_t mark = text ? 1 : 0;
    const std::size_t size = text ? text->size() : bytes->size();
    if (again && offset == size) return SQL_NO_DATA;
    Count(&Script::pieces, 1);
    const std::size_t most = static_cast<std::size_t>(room) / width - mark;
    const std::size_t rest = size - offset;
    const bool cut = rest > most;
    std::size_t taken = std::min(rest, most);
    if (cut && text && script.keeps_pairs && IsHigh((*text)[offset + taken - 1])) --taken;
    const void* from =
        text ? static_cast<const void*>(text->data() + offset) : static_cast<const void*>(bytes->data() + offset);
    if (taken > 0) std::memcpy(to, from, taken * width);
    if (text) {
        const char16_t end = 0;
        std::memcpy(static_cast<char*>(to) + taken * width, &end, sizeof end);
    }
    *length = cut && !script.tells_lengths ? SQLLEN{SQL_NO_TOTAL} : static_cast<SQLLEN>(rest * width);
    offset += taken;
    if (!cut) return SQL_SUCCESS;
    return Say(SQL_SUCCESS_WITH_INFO, {{"01004", 0, u"[Fake]String data, right truncated"}});
}

// Copies a text with its end mark into room for so many units. Gives the units of the whole.
SQLSMALLINT PutWide(std::u16string_view text, SQLWCHAR* to, std::size_t room) {
    if (to && room > 0) {
        const std::size_t taken = std::min(text.size(), room - 1);
        std::memcpy(to, text.data(), taken * sizeof(char16_t));
        to[taken] = 0;
    }
    return static_cast<SQLSMALLINT>(text.size());
}

std::u16string Taken(const SQLWCHAR* text, SQLLEN length) {
    std::u16string taken;
    for (SQLLEN i = 0; length == SQL_NTS ? text[i] != 0 : i < length; ++i) taken += static_cast<char16_t>(text[i]);
    return taken;
}

}  // namespace

extern "C" {

odbc_driver::Script* LumoOdbcDriverScript() { return &TheScript(); }

SQLRETURN SQL_API SQLAllocHandle(SQLSMALLINT type, SQLHANDLE parent, SQLHANDLE* handle) {
    Base* made = nullptr;
    if (type == SQL_HANDLE_ENV) made = new Environment;
    if (type == SQL_HANDLE_DBC) made = new Connection;
    if (type == SQL_HANDLE_STMT) made = new Statement(As<Connection>(parent));
    *handle = made;
    return made ? SQL_SUCCESS : SQL_ERROR;
}

SQLRETURN SQL_API SQLFreeHandle(SQLSMALLINT, SQLHANDLE handle) {
    delete static_cast<Base*>(handle);
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLFreeStmt(SQLHSTMT, SQLUSMALLINT) { return SQL_SUCCESS; }

SQLRETURN SQL_API SQLSetEnvAttr(SQLHENV, SQLINTEGER, SQLPOINTER, SQLINTEGER) { return SQL_SUCCESS; }

SQLRETURN SQL_API SQLSetConnectAttrW(SQLHDBC handle, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER) {
    if (!TheScript().knows_attributes)
        return As<Connection>(handle).Refuse("HYC00", u"[Fake]Optional feature not implemented");
    if (attribute == SQL_ATTR_LOGIN_TIMEOUT) TheScript().login_timeout = reinterpret_cast<SQLULEN>(value);
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLGetConnectAttrW(SQLHDBC handle, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER, SQLINTEGER*) {
    if (attribute != SQL_ATTR_CONNECTION_DEAD || !TheScript().knows_attributes)
        return As<Connection>(handle).Refuse("HYC00", u"[Fake]Optional feature not implemented");
    const SQLUINTEGER dead = TheScript().dead ? SQL_CD_TRUE : SQL_CD_FALSE;
    std::memcpy(value, &dead, sizeof dead);
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLDriverConnectW(SQLHDBC handle, SQLHWND, SQLWCHAR* text, SQLSMALLINT length, SQLWCHAR*, SQLSMALLINT,
                                    SQLSMALLINT*, SQLUSMALLINT) {
    auto& connection = As<Connection>(handle);
    std::vector<Message> messages;
    connection.server = odbc_driver::LogIn(Taken(text, length), messages);
    if (!connection.server) return connection.Say(SQL_ERROR, messages);
    Count(&Script::connections, 1);
    return connection.Say(messages.empty() ? SQL_SUCCESS : SQL_SUCCESS_WITH_INFO, messages);
}

SQLRETURN SQL_API SQLDisconnect(SQLHDBC handle) {
    auto& connection = As<Connection>(handle);
    if (connection.server) Count(&Script::connections, -1);
    connection.server.reset();
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLGetInfoW(SQLHDBC handle, SQLUSMALLINT type, SQLPOINTER value, SQLSMALLINT room, SQLSMALLINT* length) {
    const char16_t* text = nullptr;
    const std::u16string name = odbc_driver::ServerName();
    if (type == SQL_DBMS_NAME) text = name.c_str();
    if (type == SQL_DRIVER_ODBC_VER) text = u"03.51";
    if (text) {
        const SQLSMALLINT units =
            PutWide(text, static_cast<SQLWCHAR*>(value), static_cast<std::size_t>(room) / sizeof(SQLWCHAR));
        if (length) *length = static_cast<SQLSMALLINT>(units * static_cast<int>(sizeof(SQLWCHAR)));
        return SQL_SUCCESS;
    }
    return As<Connection>(handle).Refuse("HYC00", u"[Fake]Optional feature not implemented");
}

SQLRETURN SQL_API SQLSetStmtAttrW(SQLHSTMT handle, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER) {
    if (!TheScript().knows_attributes)
        return As<Statement>(handle).Refuse("HYC00", u"[Fake]Optional feature not implemented");
    if (attribute == SQL_ATTR_QUERY_TIMEOUT) TheScript().statement_timeout = reinterpret_cast<SQLULEN>(value);
    if (attribute == SQL_ATTR_NOSCAN) TheScript().no_scan = reinterpret_cast<SQLULEN>(value);
    return SQL_SUCCESS;
}

// The driver manager asks for the descriptors of a new statement.
SQLRETURN SQL_API SQLGetStmtAttrW(SQLHSTMT handle, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER, SQLINTEGER*) {
    if (attribute < SQL_ATTR_APP_ROW_DESC || attribute > SQL_ATTR_IMP_PARAM_DESC) return SQL_ERROR;
    *static_cast<SQLHANDLE*>(value) = handle;
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLExecDirectW(SQLHSTMT handle, SQLWCHAR* text, SQLINTEGER length) {
    auto& statement = As<Statement>(handle);
    statement.results = statement.connection.server->Run(Taken(text, length));
    statement.at = 0;
    return statement.Reach();
}

SQLRETURN SQL_API SQLMoreResults(SQLHSTMT handle) {
    auto& statement = As<Statement>(handle);
    if (statement.at < statement.results.size()) ++statement.at;
    if (statement.at == statement.results.size() && TheScript().endless_failures > 0) {
        --TheScript().endless_failures;
        return statement.Refuse("HY000", u"[Fake]again");
    }
    return statement.Reach();
}

SQLRETURN SQL_API SQLNumResultCols(SQLHSTMT handle, SQLSMALLINT* count) {
    Result* result = As<Statement>(handle).Current();
    *count = result ? static_cast<SQLSMALLINT>(result->columns.size()) : SQLSMALLINT{0};
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLRowCount(SQLHSTMT handle, SQLLEN* count) {
    Result* result = As<Statement>(handle).Current();
    *count = result ? result->row_count : -1;
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLDescribeColW(SQLHSTMT handle, SQLUSMALLINT number, SQLWCHAR* name, SQLSMALLINT room, SQLSMALLINT* length,
                                  SQLSMALLINT* type, SQLULEN* size, SQLSMALLINT* digits, SQLSMALLINT* nullable) {
    const Column& column = As<Statement>(handle).Current()->columns[static_cast<std::size_t>(number - 1)];
    *length = PutWide(column.name, name, static_cast<std::size_t>(room));
    *type = column.type;
    *size = 0;
    *digits = 4;
    *nullable = SQL_NULLABLE;
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLColAttributeW(SQLHSTMT handle, SQLUSMALLINT number, SQLUSMALLINT field, SQLPOINTER text,
                                   SQLSMALLINT room, SQLSMALLINT* length, SQLLEN* value) {
    const Column& column = As<Statement>(handle).Current()->columns[static_cast<std::size_t>(number - 1)];
    if (field == SQL_DESC_UNSIGNED) {
        *value = column.is_unsigned ? SQL_TRUE : SQL_FALSE;
    } else if (field == SQL_DESC_TYPE_NAME) {
        const SQLSMALLINT units =
            PutWide(column.type_name, static_cast<SQLWCHAR*>(text), static_cast<std::size_t>(room) / sizeof(SQLWCHAR));
        if (length) *length = static_cast<SQLSMALLINT>(units * static_cast<int>(sizeof(SQLWCHAR)));
    } else {
        return As<Statement>(handle).Refuse("HY091", u"[Fake]Invalid descriptor field identifier");
    }
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLFetch(SQLHSTMT handle) { return As<Statement>(handle).Fetch(); }

SQLRETURN SQL_API SQLGetData(SQLHSTMT handle, SQLUSMALLINT number, SQLSMALLINT c_type, SQLPOINTER to, SQLLEN room,
                             SQLLEN* length) {
    return As<Statement>(handle).GetData(number, c_type, to, room, length);
}

SQLRETURN SQL_API SQLGetDiagRecW(SQLSMALLINT, SQLHANDLE handle, SQLSMALLINT number, SQLWCHAR* state, SQLINTEGER* native,
                                 SQLWCHAR* text, SQLSMALLINT room, SQLSMALLINT* length) {
    const auto& messages = static_cast<Base*>(handle)->messages;
    const auto index = static_cast<std::size_t>(number - 1);
    if (index >= messages.size()) return SQL_NO_DATA;
    const Message& message = messages[index];
    PutWide(std::u16string(message.state.begin(), message.state.end()), state, 6);
    *native = message.number;
    *length = PutWide(message.text, text, static_cast<std::size_t>(room));
    return *length < room ? SQL_SUCCESS : SQL_SUCCESS_WITH_INFO;
}

SQLRETURN SQL_API SQLGetDiagFieldW(SQLSMALLINT, SQLHANDLE handle, SQLSMALLINT, SQLSMALLINT field, SQLPOINTER value,
                                   SQLSMALLINT, SQLSMALLINT*) {
    if (field != SQL_DIAG_NUMBER) return SQL_ERROR;
    *static_cast<SQLINTEGER*>(value) = static_cast<SQLINTEGER>(static_cast<Base*>(handle)->messages.size());
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLEndTran(SQLSMALLINT, SQLHANDLE, SQLSMALLINT) { return SQL_SUCCESS; }
}
