#include <LumoConnection/odbc/link.h>

#include <algorithm>
#include <limits>

#include <LumoConnection/error_numbers.h>
#include <LumoConnection/odbc/wide_text.h>

namespace LumoConnection::Odbc {

namespace {

constexpr const char* kNoManager = "The ODBC driver manager gives no connection handle.";

}  // namespace

SQLHANDLE Link::Prepared() {
    if (environment_) SQLSetEnvAttr(environment_.Get(), SQL_ATTR_ODBC_VERSION, AsPointer(SQL_OV_ODBC3), 0);
    return environment_.Get();
}

Link::~Link() {
    if (open_) SQLDisconnect(connection_.Get());
}

bool Link::Open(const Text& driver_text, Int32 timeout, Diagnostics& diagnostics) {
    if (!connection_) {
        diagnostics.Fail(Refused::kCannotOpen, kNoManager);
        return false;
    }
    timeout_ = timeout;
    const auto seconds = AsPointer(static_cast<SQLULEN>(timeout));
    // Not every driver knows it.
    SQLSetConnectAttrW(connection_.Get(), SQL_ATTR_LOGIN_TIMEOUT, seconds, SQL_IS_UINTEGER);
    WideText wide = ToWide(driver_text);
    const auto length = To<SQLSMALLINT>(wide.size());
    wide.push_back(0);
    const SQLRETURN code =
        SQLDriverConnectW(connection_.Get(), nullptr, wide.data(), length, nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    std::ranges::fill(wide, SQLWCHAR{0});
    open_ = SQL_SUCCEEDED(code);
    if (!diagnostics.Take(code, SQL_HANDLE_DBC, connection_.Get())) return false;
    if (code == SQL_NO_DATA)
        diagnostics.Fail(Refused::kCannotOpen, "The driver wants to ask for more than the text says.");
    return open_;
}

bool Link::IsAlive() const {
    if (!open_) return false;
    SQLUINTEGER dead = SQL_CD_FALSE;
    const SQLRETURN code = SQLGetConnectAttrW(connection_.Get(), SQL_ATTR_CONNECTION_DEAD, &dead, SQL_IS_UINTEGER, nullptr);
    return !SQL_SUCCEEDED(code) || dead != SQL_CD_TRUE;
}

bool Link::IsMicrosoft() const {
    WideText name(256);
    SQLSMALLINT bytes = 0;
    const SQLRETURN code = SQLGetInfoW(connection_.Get(), SQL_DBMS_NAME, name.data(),
                                       static_cast<SQLSMALLINT>(name.size() * sizeof(SQLWCHAR)), &bytes);
    return SQL_SUCCEEDED(code) && ToText(name).find("Microsoft SQL Server") != Text::npos;
}

void Link::Run(const Text& sql, TextOutcome& outcome, Diagnostics& diagnostics) {
    const Statement statement(connection_.Get());
    if (!statement) {
        diagnostics.Take(SQL_ERROR, SQL_HANDLE_DBC, connection_.Get());
        return;
    }
    // Not every driver knows them; what a driver says about that is no message of the text.
    SQLSetStmtAttrW(statement.Get(), SQL_ATTR_NOSCAN, AsPointer(SQL_NOSCAN_ON), SQL_IS_UINTEGER);
    SQLSetStmtAttrW(statement.Get(), SQL_ATTR_QUERY_TIMEOUT, AsPointer(static_cast<SQLULEN>(timeout_)), SQL_IS_UINTEGER);
    WideText wide = ToWide(sql);
    // The driver manager refuses a length of 0.
    const SQLINTEGER length = wide.empty() ? SQL_NTS : To<SQLINTEGER>(wide.size());
    wide.push_back(0);
    SQLRETURN code = SQLExecDirectW(statement.Get(), wide.data(), length);
    // A broken connection may fail for ever.
    constexpr int kMostFailures = 50;
    int failures = 0;
    bool first = true;
    while (first || code != SQL_NO_DATA) {
        if (code == SQL_NEED_DATA) {
            diagnostics.Fail(Refused::kNotCovered, "The text holds a parameter mark.");
            return;
        }
        if (diagnostics.Take(code, SQL_HANDLE_STMT, statement.Get())) {
            ReadResult(statement.Get(), outcome, diagnostics);
        } else if (++failures == kMostFailures || diagnostics.Lost()) {
            return;
        }
        first = false;
        code = SQLMoreResults(statement.Get());
    }
}

void Link::ReadResult(SQLHSTMT statement, TextOutcome& outcome, Diagnostics& diagnostics) {
    SQLSMALLINT columns = 0;
    if (!diagnostics.Take(SQLNumResultCols(statement, &columns), SQL_HANDLE_STMT, statement)) return;
    ResultReader reader(statement, diagnostics);
    if (columns > 0 && outcome.rows && outcome.keeps_further_rows) {
        outcome.further_rows.emplace_back(reader.Read(columns));
    } else if (columns > 0 && outcome.rows) {
        reader.Skip();
    } else if (columns > 0) {
        outcome.rows = reader.Read(columns);
        if (outcome.rows) outcome.affected = To<Int32>(outcome.rows->RowCount());
    } else {
        SQLLEN count = -1;
        if (SQL_SUCCEEDED(SQLRowCount(statement, &count)) && count >= 0)
            outcome.affected = static_cast<Int32>(std::min<SQLLEN>(count, std::numeric_limits<Int32>::max()));
    }
}

}  // namespace LumoConnection::Odbc
