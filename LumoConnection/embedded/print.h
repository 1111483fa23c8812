#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <LumoConnection/embedded/catalog.h>
#include <LumoConnection/embedded/tree.h>

namespace LumoConnection::Embedded {

/// What is bound to one place of a printed statement.
struct Parameter {
    enum class From : std::uint8_t { kLiteral, kVariable, kNow, kUser, kRowCount };

    From from = From::kLiteral;
    bool negative = false;
    Purpose purpose = Purpose::kCast;
    int style = 0;
    std::uint32_t index = 0;  // of the literal or the variable
    Type type;                // what the place asks for
};

/// A statement as SQLite reads it.
struct Printed {
    std::string sql;
    std::vector<Parameter> parameters;
};

/// The collation and the functions are added to every connection.
inline constexpr const char* kCollation = "LATIN1_GENERAL_CI_AS";

// Checked trees as SQLite's text.
Printed PrintSelect(const Select& select);
Printed PrintInsert(const InsertStatement& insert);
/// The rows that an INSERT would add, in the order of its targets.
Printed PrintInsertRows(const InsertStatement& insert);
Printed PrintUpdate(const UpdateStatement& update);
/// Of the rows that an UPDATE changes: the row's number, then all columns with their new values.
Printed PrintUpdateRows(const UpdateStatement& update);
Printed PrintDelete(const DeleteStatement& statement);
/// The row numbers that a DELETE removes.
Printed PrintDeleteRows(const DeleteStatement& statement);
/// SELECT of one value; of a condition as 1 or 0.
Printed PrintValue(const Expression& value);

// Definitions; each text is one statement.
std::vector<std::string> PrintCreateTable(const Table& table, const CreateTableStatement& create);
std::vector<std::string> PrintKey(const Table& table, const Key& key);
/// @param default_value the value that rows already there get, as SQLite writes it
std::string PrintAddColumn(const Table& table, const Column& column, const std::string& default_value);

/// A value as SQLite reads it.
std::string PrintConstant(const Value& value);

/// Plain statements on whole rows, to find out which row of a change is refused.
std::string PrintInsertRow(const Table& table);
std::string PrintDeleteRow(const Table& table);

}  // namespace LumoConnection::Embedded
