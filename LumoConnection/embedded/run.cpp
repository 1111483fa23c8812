#include <LumoConnection/embedded/run.h>

#include <new>
#include <utility>

#include <LumoSeminar/frame/clock.h>

#include <LumoConnection/embedded/parser.h>

namespace LumoConnection::Embedded {

Runner::Runner(Database& database, Plan& plan, const std::vector<Literal>& literals, Outcome& outcome)
    : database_(database), plan_(plan), literals_(literals), outcome_(outcome) {
    if (!plan_.variables.all.empty()) variables_.resize(plan_.variables.all.size());
}

bool Runner::Run() {
    RunAll(plan_.batch.statements);
    return !start_over_;
}

void Runner::RunAll(std::vector<StatementPtr>& statements) {
    for (StatementPtr& statement : statements) {
        if (stopped_) return;
        RunOne(*statement);
    }
}

void Runner::RunOne(Statement& statement) {
    SqliteConnection& connection = database_.connection_;
    try {
        if (tables_went_back_) {
            // What was compiled of this text may name tables that are gone.
            Refuse(Refused::kStorage, "ROLLBACK took back changes of tables. Run what follows it as a text of its own.");
        }
        if (!statement.is_compiled) {
            database_.Compile(plan_, statement, literals_);
            variables_.resize(plan_.variables.all.size());
        }
        RunNode(statement);
        anything_ran_ = true;
    } catch (Refusal& refusal) {
        for (const auto& compiled : statement.compiled) compiled->statement.Reset();
        if (database_.transactions_ == 0) connection.TakeBack();
        if (refusal.Place() == kNoPlace) refusal.SetPlace(statement.place);
        if (!outcome_.refusal) outcome_.refusal = refusal;
        database_.row_count_ = 0;
        if (!StopsText(refusal.Number())) return;
        stopped_ = true;
        if (EndsTransaction(refusal.Number()) && database_.transactions_ > 0)
            RunTransaction(TransactionStep::kRollback);
    } catch (...) {
        for (const auto& compiled : statement.compiled) compiled->statement.Reset();
        throw;
    }
}

void Runner::RunNode(Statement& statement) {
    if (auto* select = statement.If<SelectStatement>()) {
        RunSelect(statement, *select);
    } else if (const auto* insert = statement.If<InsertStatement>()) {
        RunInsert(statement, *insert);
    } else if (const auto* update = statement.If<UpdateStatement>()) {
        RunUpdate(statement, *update);
    } else if (const auto* erase = statement.If<DeleteStatement>()) {
        RunDelete(statement, *erase);
    } else if (auto* declare = statement.If<DeclareStatement>()) {
        std::size_t at = 0;
        for (const auto& variable : declare->variables) {
            if (!variable.value) continue;
            CompiledStatement& value = *statement.compiled[at++];
            Assign(variable.slot, SingleValue(value));
            // A statement that is left half way would keep its view of the file.
            value.statement.Reset();
        }
    } else if (const auto* set = statement.If<SetStatement>()) {
        Assign(set->slot, SingleValue(*statement.compiled.front()));
        statement.compiled.front()->statement.Reset();
    } else if (auto* condition = statement.If<IfStatement>()) {
        const Value value = SingleValue(*statement.compiled.front());
        const bool holds = value.form == Value::Form::kInteger && value.integer != 0;
        statement.compiled.front()->statement.Reset();
        if (stopped_) return;
        if (holds) {
            RunOne(*condition->then);
        } else if (condition->otherwise) {
            RunOne(*condition->otherwise);
        }
    } else if (auto* block = statement.If<BlockStatement>()) {
        RunAll(block->statements);
    } else if (const auto* transaction = statement.If<TransactionStatement>()) {
        RunTransaction(transaction->step);
    } else if (const auto* create = statement.If<CreateTableStatement>()) {
        RunCreateTable(*create);
    } else if (const auto* alter = statement.If<AlterTableStatement>()) {
        RunAlter(*alter);
    } else if (const auto* index = statement.If<CreateIndexStatement>()) {
        RunCreateIndex(*index);
    } else if (const auto* drop = statement.If<DropTableStatement>()) {
        RunDropTable(*drop);
    } else if (const auto* drop_index = statement.If<DropIndexStatement>()) {
        RunDropIndex(*drop_index);
    }
}

void Runner::Bind(SqliteStatement& statement, const std::vector<Parameter>& parameters) {
    auto& buffers = database_.buffers_;
    if (buffers.size() < parameters.size()) buffers.resize(parameters.size());
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        const Parameter& parameter = parameters[i];
        const int at = static_cast<int>(i + 1);
        switch (parameter.from) {
            case Parameter::From::kLiteral:
                statement.Bind(at, ReadLiteral(literals_[parameter.index], parameter.negative, parameter.type,
                                               parameter.purpose, parameter.style, buffers[i]));
                break;
            case Parameter::From::kVariable: {
                const Variable& variable = variables_[parameter.index];
                Value value = variable.value;
                if (value.form == Value::Form::kText) value.text = variable.text;
                statement.Bind(at, value);
                break;
            }
            case Parameter::From::kNow:
                if (!has_now_) now_ = TicksOf(Now());
                has_now_ = true;
                statement.Bind(at, Value::Integer(now_));
                break;
            case Parameter::From::kUser:
                statement.Bind(at, Value::Text(database_.options_.user));
                break;
            case Parameter::From::kRowCount:
                statement.Bind(at, Value::Integer(database_.row_count_));
                break;
        }
    }
}

void Runner::AppendRow(StoredRows& rows, const CompiledStatement& compiled) const {
    sqlite3_stmt* statement = compiled.statement.Get();
    const auto count = static_cast<int>(compiled.types.size());
    for (int i = 0; i < count; ++i) {
        if (sqlite3_column_type(statement, i) == SQLITE_NULL) {
            rows.AppendNull();
            continue;
        }
        switch (compiled.types[static_cast<std::size_t>(i)].kind) {
            case Kind::kBit:
                rows.Append(Bool(sqlite3_column_int64(statement, i) != 0));
                break;
            case Kind::kTinyint:
                rows.Append(static_cast<Byte>(sqlite3_column_int64(statement, i)));
                break;
            case Kind::kSmallint:
                rows.Append(static_cast<Int16>(sqlite3_column_int64(statement, i)));
                break;
            case Kind::kNull:
            case Kind::kInt:
                rows.Append(static_cast<Int32>(sqlite3_column_int64(statement, i)));
                break;
            case Kind::kMoney:
                rows.Append(Money::FromUnits(sqlite3_column_int64(statement, i)));
                break;
            case Kind::kDecimal:
                rows.Append(Money::FromUnits(sqlite3_column_int64(statement, i)).ToDouble());
                break;
            case Kind::kReal:
                rows.Append(static_cast<Single>(sqlite3_column_double(statement, i)));
                break;
            case Kind::kFloat:
                rows.Append(sqlite3_column_double(statement, i));
                break;
            case Kind::kDatetime:
                rows.Append(DateTimeOf(sqlite3_column_int64(statement, i)));
                break;
            default: {
                const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
                if (!text) throw std::bad_alloc();
                rows.Append(std::string_view(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, i))));
            }
        }
    }
}

void Runner::RunSelect(Statement& statement, SelectStatement& select) {
    CompiledStatement& compiled = *statement.compiled.front();
    const auto& items = select.select->cores.front().items;
    if (items.front().what == SelectItem::What::kAssign) return RunAssignment(compiled, *select.select);
    SqliteStatement& running = compiled.statement;
    Bind(running, compiled.parameters);
    bool row = running.Step(database_.connection_);
    if (!database_.InMemory() && running.WasReadAnew() && database_.Refresh()) {
        running.Reset();
        return StartOver();
    }
    std::shared_ptr<StoredRows> rows;
    const bool is_first = !outcome_.rows;
    if (is_first || database_.keeps_further_rows_) rows = std::make_shared<StoredRows>(compiled.names);
    std::int64_t count = 0;
    for (; row; row = running.Step(database_.connection_)) {
        if (rows) AppendRow(*rows, compiled);
        ++count;
    }
    running.Reset();
    database_.row_count_ = outcome_.affected = count;
    if (!rows) return;
    if (!is_first) {
        outcome_.further_rows.push_back(std::move(rows));
        return;
    }
    outcome_.rows = std::move(rows);
    outcome_.types = compiled.types;
}

void Runner::RunAssignment(CompiledStatement& compiled, const Select& select) {
    SqliteStatement& running = compiled.statement;
    Bind(running, compiled.parameters);
    std::int64_t count = 0;
    while (running.Step(database_.connection_)) {
        if (count == 0 && !database_.InMemory() && running.WasReadAnew() && database_.Refresh()) {
            running.Reset();
            return StartOver();
        }
        ++count;
        const auto& items = select.cores.front().items;
        for (std::size_t i = 0; i < items.size(); ++i) Assign(items[i].slot, running.Column(static_cast<int>(i)));
    }
    running.Reset();
    database_.row_count_ = count;
}

Value Runner::SingleValue(CompiledStatement& compiled) {
    SqliteStatement& running = compiled.statement;
    Bind(running, compiled.parameters);
    const bool row = running.Step(database_.connection_);
    if (!database_.InMemory() && running.WasReadAnew() && database_.Refresh()) {
        running.Reset();
        StartOver();
        return {};
    }
    return row ? running.Column(0) : Value{};
}

void Runner::Assign(int slot, const Value& value) {
    Variable& variable = variables_[static_cast<std::size_t>(slot)];
    variable.value = value;
    variable.text.assign(value.text);
}

void Runner::StartOver() {
    if (anything_ran_ || database_.transactions_ > 0) {
        Refuse(Refused::kStorage, "Another session changed the tables while the text ran. Run the rest of it again.");
    }
    start_over_ = true;
    stopped_ = true;
}

bool Runner::BeginWrite(bool in_memory_too) {
    if (database_.options_.read_only) {
        Refuse(Refused::kReadOnly, "Failed to update the database because it was opened with Mode=ReadOnly.");
    }
    return Begin(in_memory_too);
}

bool Runner::Begin(bool in_memory_too) {
    if (database_.transactions_ > 0 || database_.connection_.InTransaction()) return true;
    if (database_.InMemory() && !in_memory_too) return true;
    database_.begin_.Step(database_.connection_);
    database_.begin_.Reset();
    if (database_.InMemory() || !database_.Refresh()) return true;
    database_.connection_.TakeBack();
    StartOver();
    return false;
}

void Runner::Commit() {
    if (database_.transactions_ > 0 || !database_.connection_.InTransaction()) return;
    database_.commit_.Step(database_.connection_);
    database_.commit_.Reset();
}

std::int64_t Runner::Execute(CompiledStatement& compiled) {
    SqliteStatement& running = compiled.statement;
    Bind(running, compiled.parameters);
    running.Step(database_.connection_);
    running.Reset();
    return database_.connection_.Changes();
}

void Runner::RunInsert(Statement& statement, const InsertStatement& insert) {
    if (!BeginWrite(false)) return;
    try {
        database_.row_count_ = outcome_.affected = Execute(*statement.compiled.front());
    } catch (const ConstraintFailure& failure) {
        ExplainInsert(insert, failure);
    }
    Commit();
}

void Runner::RunUpdate(Statement& statement, const UpdateStatement& update) {
    if (!BeginWrite(false)) return;
    try {
        database_.row_count_ = outcome_.affected = Execute(*statement.compiled.front());
    } catch (const ConstraintFailure& failure) {
        database_.row_count_ = outcome_.affected = MoveRows(update, failure);
    }
    Commit();
}

void Runner::RunDelete(Statement& statement, const DeleteStatement& erase) {
    if (!BeginWrite(false)) return;
    try {
        database_.row_count_ = outcome_.affected = Execute(*statement.compiled.front());
    } catch (const ConstraintFailure& failure) {
        ExplainDelete(erase, failure);
    }
    Commit();
}

void Runner::RunTransaction(TransactionStep step) {
    int& open = database_.transactions_;
    switch (step) {
        case TransactionStep::kBegin:
            if (open == 0) {
                if (!Begin(true)) return;
            }
            ++open;
            return;
        case TransactionStep::kCommit:
            if (open == 0) {
                Refuse(Refused::kCommitWithout, "The COMMIT TRANSACTION request has no corresponding BEGIN TRANSACTION.");
            }
            if (open > 1) {
                --open;
                return;
            }
            database_.connection_.Run("COMMIT");
            open = 0;
            database_.schema_touched_ = false;
            return;
        case TransactionStep::kRollback:
            if (open == 0) {
                Refuse(Refused::kRollbackWithout, "The ROLLBACK TRANSACTION request has no corresponding BEGIN TRANSACTION.");
            }
            open = 0;
            if (std::exchange(database_.schema_touched_, false)) tables_went_back_ = database_.stale_ = true;
            if (const int code = database_.connection_.TakeBack(); database_.connection_.InTransaction()) {
                database_.connection_.RefuseFailure(code);
            }
            return;
    }
}

}  // namespace LumoConnection::Embedded
