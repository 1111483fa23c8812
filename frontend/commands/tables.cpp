#include <fmt/format.h>

#include <algorithm>
#include <memory>

#include "frontend/commands/commands.h"
#include "frontend/context.h"
#include "frontend/exit_codes.h"
#include "frontend/output/counted.h"
#include "frontend/output/screen_text.h"

namespace frontend {

using namespace LumoSeminar;
using LumoConnection::TableInfo;

namespace {

struct TablesOptions {
    std::string name;
    bool columns = false;
};

std::vector<Variant> ColumnRow(const LumoConnection::ColumnInfo& column) {
    return {column.name, column.type, column.nullable, column.in_primary_key};
}

int ShowTable(const Context& context, const TableInfo& table) {
    Sheet sheet{{"Column", "Type", "Nullable", "Key"}, {}};
    for (const auto& column : table.columns) sheet.rows.push_back(ColumnRow(column));
    context.Print(sheet);
    return kDone;
}

int ShowColumns(const Context& context, const std::vector<TableInfo>& tables) {
    Sheet sheet{{"Table", "Column", "Type", "Nullable", "Key"}, {}};
    for (const auto& table : tables) {
        for (const auto& column : table.columns) {
            auto row = ColumnRow(column);
            row.insert(row.begin(), table.name);
            sheet.rows.push_back(std::move(row));
        }
    }
    context.Print(sheet);
    return kDone;
}

int ListTables(Context& context, const std::vector<TableInfo>& tables) {
    Sheet sheet{{"Table", "Columns", "Rows"}, {}};
    for (const auto& table : tables) {
        const Variant rows = context.AnyDatabase()->LookupValue("count(*)", "\"" + table.name + "\"", "");
        sheet.rows.push_back({table.name, To<Int32>(table.columns.size()), rows});
    }
    context.Print(sheet);
    context.Note(Counted(tables.size(), "table"));
    return kDone;
}

int Tables(Context& context, const TablesOptions& options) {
    const auto tables = context.Tables();
    if (options.name.empty()) return options.columns ? ShowColumns(context, tables) : ListTables(context, tables);
    const auto wanted = FoldCase(options.name);
    const auto table = std::ranges::find_if(tables, [&](const auto& one) { return FoldCase(one.name) == wanted; });
    if (table == tables.end()) {
        Raise(ErrorNumber::kKeyNotFound, "There is no table " + OneLine(options.name) + " in the database.");
    }
    return ShowTable(context, *table);
}

}  // namespace

void AddTables(Command& program) {
    auto& command = program.Add("tables", "List the tables, or the columns of one");
    const auto options = std::make_shared<TablesOptions>();
    command.Argument("TABLE", &options->name, "Show the columns of this table");
    command.Flag("--columns", options->columns, "Show the columns of all tables");
    command.Does([options](Context& context) { return Tables(context, *options); });
}

}  // namespace frontend
