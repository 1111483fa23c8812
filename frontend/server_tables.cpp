#include "frontend/server_tables.h"

#include <fmt/format.h>

#include <set>
#include <utility>

namespace frontend {

using namespace LumoSeminar;
using LumoConnection::TableInfo;

namespace {

constexpr const char* kColumns =
    "SELECT c.TABLE_NAME, c.COLUMN_NAME, c.DATA_TYPE, c.CHARACTER_MAXIMUM_LENGTH, c.IS_NULLABLE "
    "FROM INFORMATION_SCHEMA.COLUMNS c INNER JOIN INFORMATION_SCHEMA.TABLES t ON t.TABLE_SCHEMA = c.TABLE_SCHEMA AND "
    "t.TABLE_NAME = c.TABLE_NAME WHERE t.TABLE_TYPE = 'BASE TABLE' AND c.TABLE_SCHEMA NOT IN ('pg_catalog', "
    "'information_schema') ORDER BY c.TABLE_NAME, c.ORDINAL_POSITION";

constexpr const char* kKeyColumns =
    "SELECT k.TABLE_NAME, k.COLUMN_NAME FROM INFORMATION_SCHEMA.KEY_COLUMN_USAGE k INNER JOIN "
    "INFORMATION_SCHEMA.TABLE_CONSTRAINTS c ON c.CONSTRAINT_SCHEMA = k.CONSTRAINT_SCHEMA AND c.CONSTRAINT_NAME = "
    "k.CONSTRAINT_NAME AND c.TABLE_NAME = k.TABLE_NAME WHERE c.CONSTRAINT_TYPE = 'PRIMARY KEY'";

Ref<RecordSet> Select(const Ref<DataSession>& session, const Text& sql) {
    if (!session->OpenSelect(sql)) Raise(ErrorNumber::kStatementRefused, session->LastErrorText());
    return session->Recordset();
}

Text TextAt(const Ref<RecordSet>& rows, Int16 position) { return To<Text>(rows->Fields().Item(position).Value()); }

// "nvarchar(20)"; the unlimited forms tell -1.
Text TypeOf(const Ref<RecordSet>& rows) {
    Text name = TextAt(rows, 2);
    const Variant length = rows->Fields().Item(3).Value();
    if (length.IsNull() || name == "text" || name == "ntext") return name;
    const auto number = To<Int32>(length);
    return number < 0 ? name + "(max)" : fmt::format("{}({})", name, number);
}

}  // namespace

std::vector<TableInfo> ServerTables(const Ref<DataSession>& session) {
    std::set<std::pair<Text, Text>> keys;
    for (const auto rows = Select(session, kKeyColumns); !rows->Eof(); rows->MoveNext()) {
        keys.emplace(TextAt(rows, 0), TextAt(rows, 1));
    }
    std::vector<TableInfo> tables;
    for (const auto rows = Select(session, kColumns); !rows->Eof(); rows->MoveNext()) {
        const Text table = TextAt(rows, 0);
        const Text column = TextAt(rows, 1);
        if (tables.empty() || tables.back().name != table) tables.push_back({table, {}});
        tables.back().columns.push_back({column, TypeOf(rows), TextAt(rows, 4) == "YES", keys.contains({table, column})});
    }
    return tables;
}

}  // namespace frontend
