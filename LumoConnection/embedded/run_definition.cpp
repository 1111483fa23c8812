#include <algorithm>

#include <LumoConnection/embedded/parser.h>
#include <LumoConnection/embedded/run.h>

namespace LumoConnection::Embedded {
namespace {

// Takes back what a definition did half way.
class Savepoint {
  public:
    explicit Savepoint(SqliteConnection& connection) : connection_(connection) {
        connection_.Run("SAVEPOINT lumo_definition");
    }
    ~Savepoint() {
        if (kept_) return;
        try {
            connection_.Run("ROLLBACK TO lumo_definition");
            connection_.Run("RELEASE lumo_definition");
        } catch (...) {
            // Half of it must not stay.
            connection_.TakeBack();
        }
    }
    Savepoint(const Savepoint&) = delete;
    Savepoint& operator=(const Savepoint&) = delete;

    void Keep() {
        connection_.Run("RELEASE lumo_definition");
        kept_ = true;
    }

  private:
    SqliteConnection& connection_;
    bool kept_ = false;
};

// A CHECK sees the row alone.
void RefuseMoreThanTheRow(const Expression& expression) {
    if (InnerSelect(expression)) {
        Refuse(1046, "Subqueries are not allowed in this context. Only scalar expressions are allowed.", expression.place);
    }
    if (expression.If<AmbientNode>()) {
        RefuseNotCovered("A CHECK that depends on the moment, the user or the last statement", expression.place);
    }
    for (const Expression* child : Children(expression)) RefuseMoreThanTheRow(*child);
}

[[noreturn]] void RefuseDuplicate(const Table& table, const Key& key) {
    Refuse(1505, "The CREATE UNIQUE INDEX statement terminated because a duplicate key was found for the object name 'dbo." +
                     table.name + "' and the index name '" + key.name + "'.");
}

}  // namespace

void Runner::RunCreateTable(const CreateTableStatement& create) {
    if (!BeginWrite(true)) return;
    Savepoint savepoint(database_.connection_);
    std::unique_ptr<Table> table = database_.catalog_.Define(create);
    std::vector<std::uint32_t> fixed;
    for (const CheckDefinition& check : create.elements.checks) {
        // The tree is not used again: a definition is never kept as a plan.
        auto& condition = const_cast<CheckDefinition&>(check).condition;
        Checker(database_.catalog_, plan_.variables, literals_, fixed).CheckRowCondition(condition, *table);
        RefuseMoreThanTheRow(*condition);
    }
    for (const ColumnDefinition& column : create.elements.columns) {
        if (column.default_value) WorkOut(column.default_value->text, column.type);
    }
    for (const std::string& sql : PrintCreateTable(*table, create)) database_.connection_.Run(sql);
    database_.Remember(table->name, table->name, create.text);
    savepoint.Keep();
    Commit();
    database_.TableChanged(std::move(table));
}

// The value of a default as SQLite writes it.
std::string Runner::WorkOut(const std::string& expression, Type type) {
    ExpressionPtr value = ParseOwnExpression(expression);
    std::vector<std::uint32_t> fixed;
    Checker(database_.catalog_, plan_.variables, literals_, fixed).CheckValue(value, type);
    const Printed printed = PrintValue(*value);
    SqliteStatement statement = database_.connection_.Prepare(printed.sql);
    Bind(statement, printed.parameters);
    return statement.Step(database_.connection_) ? PrintConstant(statement.Column(0)) : "NULL";
}

void Runner::RunAlter(const AlterTableStatement& alter) {
    if (!BeginWrite(true)) return;
    Savepoint savepoint(database_.connection_);
    if (!alter.added.foreign_keys.empty()) RefuseNotCovered("A foreign key added to a table that is there");
    if (!alter.added.checks.empty()) RefuseNotCovered("A CHECK added to a table that is there");
    std::unique_ptr<Table> table = database_.catalog_.Define(alter);
    const std::size_t first_new = table->columns.size() - alter.added.columns.size();
    for (std::size_t i = first_new; i < table->columns.size(); ++i) {
        const Column& column = table->columns[i];
        std::string value = "NULL";
        if (!column.default_text.empty()) value = WorkOut(column.default_text, column.type);
        if (column.nullable) value = "NULL";
        try {
            database_.connection_.Run(PrintAddColumn(*table, column, value));
        } catch (const Refusal& refusal) {
            if (column.nullable || value != "NULL" || refusal.Number() != Refused::kStorage) throw;
            Refuse(Refused::kAlterNeedsDefault,
                   "ALTER TABLE only allows columns to be added that can contain nulls, or have a DEFAULT definition specified, or the table must be empty. Column '" +
                       column.name + "' cannot be added to non-empty table '" + table->name +
                       "' because it does not satisfy these conditions.");
        }
    }
    const std::size_t first_key = table->keys.size() - alter.added.keys.size();
    for (std::size_t i = first_key; i < table->keys.size(); ++i) {
        try {
            for (const std::string& sql : PrintKey(*table, table->keys[i])) database_.connection_.Run(sql);
        } catch (const ConstraintFailure&) {
            RefuseDuplicate(*table, table->keys[i]);
        }
    }
    database_.Remember(table->name, table->name, alter.text);
    savepoint.Keep();
    Commit();
    database_.TableChanged(std::move(table));
}

void Runner::RunCreateIndex(const CreateIndexStatement& create) {
    if (!BeginWrite(true)) return;
    Savepoint savepoint(database_.connection_);
    std::unique_ptr<Table> table = database_.catalog_.Define(create);
    try {
        for (const std::string& sql : PrintKey(*table, table->keys.back())) database_.connection_.Run(sql);
    } catch (const ConstraintFailure&) {
        RefuseDuplicate(*table, table->keys.back());
    }
    database_.Remember(table->name, create.name, create.text);
    savepoint.Keep();
    Commit();
    database_.TableChanged(std::move(table));
}

void Runner::RunDropTable(const DropTableStatement& drop) {
    for (const std::string& name : drop.tables) {
        if (!BeginWrite(true)) return;
        Savepoint savepoint(database_.connection_);
        const Table* table = database_.catalog_.Find(name);
        if (!table) {
            Refuse(Refused::kCannotDrop,
                   "Cannot drop the table '" + name + "', because it does not exist or you do not have permission.");
        }
        for (const auto& [other, key] : database_.catalog_.References(*table)) {
            if (other == table) continue;
            Refuse(Refused::kReferenced,
                   "Could not drop object '" + table->name + "' because it is referenced by a FOREIGN KEY constraint.");
        }
        database_.plans_.Clear();
        database_.connection_.Run("DROP TABLE " + QuoteName(table->name));
        SqliteStatement forget = database_.connection_.Prepare(R"(DELETE FROM "lumo$ddl" WHERE "table" = ?1)");
        const std::string folded = FoldName(table->name);
        forget.Bind(1, Value::Text(folded));
        forget.Step(database_.connection_);
        forget.Reset();
        savepoint.Keep();
        Commit();
        database_.TableDropped(folded);
    }
}

void Runner::RunDropIndex(const DropIndexStatement& drop) {
    if (!BeginWrite(true)) return;
    Savepoint savepoint(database_.connection_);
    const Table* known = database_.catalog_.Find(drop.table);
    const auto refuse = [&] {
        Refuse(Refused::kCannotDrop, "Cannot drop the index '" + drop.table + "." + drop.name +
                                         "', because it does not exist or you do not have permission.");
    };
    if (!known) refuse();
    auto table = std::make_unique<Table>(*known);
    const auto key = std::ranges::find_if(
        table->keys, [&](const Key& other) { return other.is_index && SameName(other.name, drop.name); });
    if (key == table->keys.end()) refuse();
    const std::string name = IndexName(*table, key->name);
    database_.plans_.Clear();
    database_.connection_.Run("DROP INDEX " + QuoteName(name));
    database_.connection_.Run("DROP INDEX IF EXISTS " + QuoteName(name + ".null"));
    SqliteStatement forget = database_.connection_.Prepare(R"(DELETE FROM "lumo$ddl" WHERE "table" = ?1 AND object = ?2)");
    const std::string folded_table = FoldName(table->name);
    const std::string folded_name = FoldName(drop.name);
    forget.Bind(1, Value::Text(folded_table));
    forget.Bind(2, Value::Text(folded_name));
    forget.Step(database_.connection_);
    forget.Reset();
    savepoint.Keep();
    Commit();
    table->keys.erase(key);
    database_.TableChanged(std::move(table));
}

}  // namespace LumoConnection::Embedded
