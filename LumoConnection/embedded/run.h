#pragma once

#include <string>
#include <vector>

#include <LumoConnection/embedded/database.h>
#include <LumoConnection/embedded/plan.h>

namespace LumoConnection::Embedded {

/// Walks one text: binds, steps and collects. Each statement stands alone.
class Runner {
  public:
    Runner(Database& database, Plan& plan, const std::vector<Literal>& literals, Outcome& outcome);

    /// False where another connection had changed the tables before anything ran: the plan has to be made anew.
    bool Run();

  private:
    struct Variable {
        Value value;
        std::string text;
    };

    void RunAll(std::vector<StatementPtr>& statements);
    void RunOne(Statement& statement);
    void RunNode(Statement& statement);
    void RunSelect(Statement& statement, SelectStatement& select);
    void RunAssignment(CompiledStatement& compiled, const Select& select);
    void RunInsert(Statement& statement, const InsertStatement& insert);
    void RunUpdate(Statement& statement, const UpdateStatement& update);
    void RunDelete(Statement& statement, const DeleteStatement& erase);
    void RunTransaction(TransactionStep step);
    void RunCreateTable(const CreateTableStatement& create);
    void RunAlter(const AlterTableStatement& alter);
    void RunCreateIndex(const CreateIndexStatement& create);
    void RunDropTable(const DropTableStatement& drop);
    void RunDropIndex(const DropIndexStatement& drop);
    std::string WorkOut(const std::string& expression, Type type);

    void Bind(SqliteStatement& statement, const std::vector<Parameter>& parameters);
    void AppendRow(StoredRows& rows, const CompiledStatement& compiled) const;
    Value SingleValue(CompiledStatement& compiled);
    void Assign(int slot, const Value& value);
    /// Runs a change; gives the number of rows.
    std::int64_t Execute(CompiledStatement& compiled);
    /// Opens a transaction where the text has not opened one. False where the tables have changed meanwhile.
    bool Begin(bool in_memory_too);
    /// The same for a change. Refuses it where the file was opened to be read only.
    bool BeginWrite(bool in_memory_too);
    void Commit();
    void StartOver();

    // What a violated constraint means (violation.cpp).
    using Row = std::vector<Variable>;
    std::vector<Row> Collect(const Printed& printed);
    /// Inserts row by row until one is refused, then refuses in the server's words.
    void ExplainInsert(const InsertStatement& insert, const ConstraintFailure& failure);
    /// Moves the rows all at once; refuses in the server's words if they clash at the end, too.
    std::int64_t MoveRows(const UpdateStatement& update, const ConstraintFailure& failure);
    void ExplainDelete(const DeleteStatement& erase, const ConstraintFailure& failure);
    void InsertRow(SqliteStatement& insert, const Table& table, const Row& row, const char* verb);
    [[noreturn]] void RefuseViolation(const ConstraintFailure& failure, const Table& table, const Row* row, const char* verb);
    void RefuseReference(const Table& table, const Row* row, const char* verb);

    Database& database_;
    Plan& plan_;
    const std::vector<Literal>& literals_;
    Outcome& outcome_;
    std::vector<Variable> variables_;
    Ticks now_ = 0;
    bool has_now_ = false;
    bool anything_ran_ = false;
    bool stopped_ = false;
    bool start_over_ = false;
    bool tables_went_back_ = false;
    std::size_t place_ = 0;
};

}  // namespace LumoConnection::Embedded
