#include <algorithm>

#include <LumoConnection/embedded/check.h>
#include <LumoConnection/embedded/printer.h>

namespace LumoConnection::Embedded {
namespace {

// Kept by SQLite without any change of the value.
std::string ColumnType(Type type) {
    if (IsText(type.kind)) return std::string("TEXT COLLATE ").append(kCollation);
    return IsFloating(type.kind) ? "REAL" : "INTEGER";
}

std::string ColumnText(const Table& table, std::size_t at) {
    const Column& column = table.columns[at];
    std::string text = QuoteName(column.name) + " " + ColumnType(column.type);
    if (static_cast<int>(at) == table.row_number) {
        text += " PRIMARY KEY";
    }
    if (!column.nullable) text += " NOT NULL";
    return text;
}

std::string ColumnList(const Table& table, const std::vector<int>& columns) {
    std::string text;
    for (const int column : columns) {
        if (!text.empty()) text += ", ";
        text += QuoteName(table.columns[static_cast<std::size_t>(column)].name);
    }
    return "(" + text + ")";
}

std::string ForeignKeyText(const Table& table, const ForeignKey& key) {
    std::string text = "CONSTRAINT " + QuoteName(key.name) + " FOREIGN KEY " + ColumnList(table, key.columns) +
                       " REFERENCES " + QuoteName(key.table) + "(";
    for (std::size_t i = 0; i < key.table_columns.size(); ++i)
        text += (i > 0 ? ", " : "") + QuoteName(key.table_columns[i]);
    text += ")";
    if (key.delete_cascades) text += " ON DELETE CASCADE";
    if (key.update_cascades) text += " ON UPDATE CASCADE";
    return text;
}

}  // namespace

std::vector<std::string> PrintKey(const Table& table, const Key& key) {
    std::vector<std::string> statements;
    if (key.primary && key.columns.size() == 1 && key.columns.front() == table.row_number) return statements;
    const std::string name = IndexName(table, key.name);
    statements.push_back(std::string(key.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") + QuoteName(name) + " ON " +
                         QuoteName(table.name) + ColumnList(table, key.columns));
    const auto nullable = [&](int column) { return table.columns[static_cast<std::size_t>(column)].nullable; };
    if (!key.unique || std::ranges::none_of(key.columns, nullable)) return statements;
    // Two Nulls are alike to the server and different to SQLite: rows with Nulls have an index of their own.
    std::string values;
    std::string condition;
    for (const int column : key.columns) {
        const Column& known = table.columns[static_cast<std::size_t>(column)];
        const std::string quoted = QuoteName(known.name);
        values += (values.empty() ? "ifnull(" : ", ifnull(") + quoted + ", x'00')";
        if (IsText(known.type.kind)) values.append(" COLLATE ").append(kCollation);
        if (nullable(column)) condition += (condition.empty() ? "" : " OR ") + quoted + " IS NULL";
    }
    statements.push_back("CREATE UNIQUE INDEX " + QuoteName(name + ".null") + " ON " + QuoteName(table.name) + "(" +
                         values + ") WHERE " + condition);
    return statements;
}

std::vector<std::string> PrintCreateTable(const Table& table, const CreateTableStatement& create) {
    std::string text = "CREATE TABLE " + QuoteName(table.name) + "(";
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        if (i > 0) text += ", ";
        text += ColumnText(table, i);
    }
    for (const ForeignKey& key : table.foreign_keys) text += ", " + ForeignKeyText(table, key);
    for (std::size_t i = 0; i < create.elements.checks.size(); ++i) {
        Printer printer;
        printer.BareColumns();
        printer.Print(*create.elements.checks[i].condition);
        text += ", CONSTRAINT " + QuoteName(table.checks[i]) + " CHECK (" + printer.Finish().sql + ")";
    }
    text += ") STRICT";
    std::vector<std::string> statements{std::move(text)};
    for (const Key& key : table.keys) {
        for (std::string& statement : PrintKey(table, key)) statements.push_back(std::move(statement));
    }
    return statements;
}

std::string PrintAddColumn(const Table& table, const Column& column, const std::string& default_value) {
    std::string text =
        "ALTER TABLE " + QuoteName(table.name) + " ADD COLUMN " + QuoteName(column.name) + " " + ColumnType(column.type);
    if (!column.nullable) text += " NOT NULL";
    if (default_value != "NULL") text += " DEFAULT " + default_value;
    return text;
}

std::string PrintInsertRow(const Table& table) {
    std::string text = "INSERT INTO " + QuoteName(table.name) + "(";
    std::string values;
    if (table.row_number < 0) {
        text += std::string(table.RowId()) + ", ";
        values = "?1, ";
    }
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        text += (i > 0 ? ", " : "") + QuoteName(table.columns[i].name);
        values += (i > 0 ? ", ?" : "?") + std::to_string(i + 2);
    }
    return text + ") VALUES (" + values + ")";
}

std::string PrintDeleteRow(const Table& table) {
    return "DELETE FROM " + QuoteName(table.name) + " WHERE " + table.RowId() + " = ?1";
}

}  // namespace LumoConnection::Embedded
