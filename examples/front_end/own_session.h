#pragma once

#include <LumoSeminar/LumoSeminar.h>

#include <algorithm>
#include <cctype>
#include <iostream>
#include <vector>

namespace front_end {

using namespace LumoSeminar;

struct Table {
    std::vector<Text> columns;
    std::vector<std::vector<Variant>> rows;  ///< Variant::Null() for a database NULL
};

/// Stands in for the database: shows each statement and answers with rows laid ready. Here your driver comes in.
class OwnDatabase final : public Object {
  public:
    /// From now on a statement with these words in it is answered so.
    void Answer(const Text& words, Table table) { answers_.insert(answers_.begin(), {words, std::move(table)}); }

    Table Run(const char* call, const Text& sql) const {
        Text shown = sql.size() > 160 ? sql.substr(0, 60) + " ... " + sql.substr(sql.size() - 95) : sql;
        std::erase_if(shown, [](unsigned char c) { return std::iscntrl(c) != 0; });
        std::cout << "    " << call << ": " << shown << '\n';
        for (const auto& [words, table] : answers_) {
            if (sql.find(words) != Text::npos) return table;
        }
        return {};
    }

  private:
    std::vector<std::pair<Text, Table>> answers_;
};

/// The rows of one statement. They are its own: the library walks them and sends further statements meanwhile.
class OwnRecordSet final : public RecordSet {
  public:
    explicit OwnRecordSet(Table table) : table_(std::move(table)) {}

    Bool Eof() override { return row_ >= table_.rows.size(); }
    Bool Bof() override { return table_.rows.empty(); }
    void MoveNext() override { ++row_; }
    void Close() override { table_.rows.clear(); }

  protected:
    Int16 ColumnCount() override { return To<Int16>(table_.columns.size()); }
    Text ColumnName(Int16 position) override { return table_.columns[To<std::size_t>(position)]; }
    // Capitals are not told apart: the statements write "MDNr" and "MDNR" for one column.
    Int16 ColumnPosition(std::string_view name) override {
        const auto same = [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); };
        for (std::size_t i = 0; i < table_.columns.size(); ++i) {
            if (std::ranges::equal(table_.columns[i], name, same)) return To<Int16>(i);
        }
        return -1;
    }
    Variant ColumnValue(Int16 position) override {
        if (Eof()) Raise(3021, "There is no current row.");  // any number that the library does not use
        return table_.rows[row_][To<std::size_t>(position)];
    }

  private:
    Table table_;
    std::size_t row_ = 0;
};

/// Most lists ask it whether it is open; target groups, organisers and venues are read through it.
class OwnConnection final : public Connection {
  public:
    explicit OwnConnection(Ref<OwnDatabase> database) : database_(std::move(database)) {}

    Int32 State() override { return kOpen; }
    void Open(const Text&, const Text&, const Text&, Int32) override {}
    Ref<RecordSet> Execute(const Text& sql, Int32) override { return New<OwnRecordSet>(database_->Run("direct", sql)); }

  private:
    Ref<OwnDatabase> database_;
};

/// What the database refuses is `false` and a LastErrorText, which the library raises as 9999; nothing is thrown.
/// This one refuses nothing.
class OwnSession final : public DataSession {
  public:
    explicit OwnSession(Ref<OwnDatabase> database) : database_(std::move(database)) {}

    Bool Connect(const Text&, const Text&, const Text&, Int32) override { return true; }
    Ref<Connection> AdoConnection() override { return New<OwnConnection>(database_); }
    Ref<RecordSet> Recordset() override { return rows_; }
    Bool OpenSelect(const Text& sql) override {
        rows_ = New<OwnRecordSet>(database_->Run("select", sql));
        return true;
    }
    Bool ExecuteSql(const Text& sql) override {
        database_->Run("execute", sql);
        return true;
    }
    Variant LookupValue(const Text& expression, const Text& table, const Text& where) override {
        const auto found =
            database_->Run("lookup", "SELECT " + expression + " FROM " + table + (where.empty() ? "" : " WHERE " + where));
        return found.rows.empty() ? Variant::Null() : found.rows.front().front();
    }
    Text LastErrorText() override { return {}; }

  private:
    Ref<OwnDatabase> database_;
    Ref<RecordSet> rows_;
};

}  // namespace front_end
