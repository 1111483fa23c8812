#pragma once

#include <sql.h>
#include <sqlext.h>

#include <deque>
#include <optional>
#include <string>
#include <variant>
#include <vector>

/// An ODBC driver for tests: it says what a script says. The driver manager loads it like any other one
/// ("Driver=/path/of/the/file"); a test that loads the same file shares the script with it.
namespace odbc_driver {

struct Message {
    std::string state = {};
    SQLINTEGER number = 0;
    std::u16string text = {};
};

using Cell = std::variant<std::monostate, std::u16string, std::vector<unsigned char>, long long, double, SQL_TIMESTAMP_STRUCT>;

struct Column {
    std::u16string name = {};
    SQLSMALLINT type = SQL_WVARCHAR;
    std::u16string type_name = {};
    bool is_unsigned = false;
};

/// One result of a text: rows where it has columns, otherwise a count.
struct Result {
    std::vector<Column> columns = {};
    std::vector<std::vector<Cell>> rows = {};
    SQLLEN row_count = -1;
    /// What comes with reaching the result.
    SQLRETURN code = SQL_SUCCESS;
    std::vector<Message> messages = {};
    /// What comes in the place of the end of the rows.
    SQLRETURN end_code = SQL_NO_DATA;
    std::vector<Message> end_messages = {};
};

struct Script {
    // What the driver does.
    std::u16string server_name = u"Fake";
    std::vector<Message> login_refusal = {};
    std::vector<Message> login_messages = {};
    /// One for each text; a text behind the last one is a success without rows.
    std::deque<std::vector<Result>> answers = {};
    /// Pieces end in front of a pair that they would part.
    bool keeps_pairs = false;
    /// The length of a long value is told with its first piece.
    bool tells_lengths = true;
    bool knows_attributes = true;
    bool dead = false;
    /// How often SQLMoreResults may fail behind the results.
    int endless_failures = 0;

    // What it has seen.
    std::vector<std::u16string> logins = {};
    std::vector<std::u16string> texts = {};
    SQLULEN login_timeout = 0;
    SQLULEN statement_timeout = 0;
    SQLULEN no_scan = 0;
    int pieces = 0;
    int connections = 0;
    int statements = 0;
    int most_statements = 0;
};

}  // namespace odbc_driver

extern "C" odbc_driver::Script* LumoOdbcDriverScript();
