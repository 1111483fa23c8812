#include <LumoConnection/embedded/database.h>

#include <algorithm>
#include <chrono>
#include <new>

#include <LumoConnection/embedded/lexer.h>
#include <LumoConnection/embedded/parser.h>
#include <LumoConnection/embedded/run.h>
#include <LumoConnection/utf8.h>

namespace LumoConnection::Embedded {
namespace {

void Add(Statement& statement, SqliteConnection& connection, Printed printed) {
    auto compiled = std::make_unique<CompiledStatement>();
    compiled->statement = connection.Prepare(printed.sql);
    compiled->parameters = std::move(printed.parameters);
    statement.compiled.push_back(std::move(compiled));
}

void NoteChanges(Statement& statement, std::set<std::string>& tables) {
    if (const auto* create = statement.If<CreateTableStatement>()) tables.insert(FoldName(create->table));
    if (const auto* alter = statement.If<AlterTableStatement>()) tables.insert(FoldName(alter->table));
    if (const auto* index = statement.If<CreateIndexStatement>()) tables.insert(FoldName(index->table));
    if (const auto* drop_index = statement.If<DropIndexStatement>()) tables.insert(FoldName(drop_index->table));
    if (const auto* drop = statement.If<DropTableStatement>()) {
        for (const std::string& name : drop->tables) tables.insert(FoldName(name));
    }
}

}  // namespace

Database::Database(Options options)
    : options_(std::move(options)),
      connection_(options_.file, options_.sync_full, options_.timeout_seconds,
                  options_.read_only ? SqliteConnection::Access::kReadOnly : SqliteConnection::Access::kReadWrite) {
    Prepare();
    connection_.TidyUpAtEnd();
    begin_ = connection_.Prepare(options_.read_only ? "BEGIN" : "BEGIN IMMEDIATE");
    commit_ = connection_.Prepare("COMMIT");
    version_ = connection_.Prepare("PRAGMA schema_version");
    Load();
}

bool Database::IsOurs() {
    // In this order: another process may make the file ours between the two.
    const std::int64_t objects = connection_.Number("SELECT count(*) FROM sqlite_schema");
    const std::int64_t application = connection_.Number("PRAGMA application_id");
    if (application == 0 && objects == 0) return false;
    if (application != kApplication) {
        Refuse(Refused::kCannotOpen, "The file '" + options_.file + "' is a database of another program.");
    }
    const std::int64_t format = connection_.Number("PRAGMA user_version");
    if (format > kFormat) {
        Refuse(Refused::kCannotOpen, "The file '" + options_.file + "' was written by a newer version: its format is " +
                                         std::to_string(format) + ", known is " + std::to_string(kFormat) + ".");
    }
    return true;
}

void Database::Prepare() {
    constexpr int kPause = 5;
    const int most_pauses = options_.timeout_seconds * (1000 / kPause);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(options_.timeout_seconds);
    for (int pauses = 0;; ++pauses) {
        try {
            if (IsOurs()) return;
            if (options_.read_only) {
                Refuse(Refused::kCannotOpen,
                       "The file '" + options_.file + "' is empty: with Mode=ReadOnly no database is made of it.");
            }
            if (!InMemory()) connection_.Run("PRAGMA journal_mode = WAL");
            connection_.Run("BEGIN IMMEDIATE");
            // Another process may have been quicker.
            if (!IsOurs()) {
                connection_.Run(R"(CREATE TABLE "lumo$ddl"(id INTEGER PRIMARY KEY, "table" TEXT NOT NULL, object TEXT NOT NULL, text TEXT NOT NULL) STRICT)");
                connection_.Run("PRAGMA application_id = " + std::to_string(kApplication));
                connection_.Run("PRAGMA user_version = " + std::to_string(kFormat));
            }
            connection_.Run("COMMIT");
            return;
        } catch (const Refusal& refusal) {
            connection_.TakeBack();
            // For the change of the journal's mode SQLite does not wait of itself.
            if (refusal.Number() != Refused::kLockTimeout || pauses >= most_pauses) throw;
            if (std::chrono::steady_clock::now() > deadline) throw;
        }
        sqlite3_sleep(kPause);
    }
}

// The tables are read from the definitions in the words in which they were run.
void Database::Load() {
    stale_ = true;
    // The version first: what another process changes meanwhile is read again.
    version_.Step(connection_);
    const std::int64_t version = version_.Column(0).integer;
    version_.Reset();
    Catalog catalog;
    SqliteStatement rows = connection_.Prepare(R"(SELECT text FROM "lumo$ddl" ORDER BY id)");
    while (rows.Step(connection_)) {
        const std::string text(rows.Column(0).text);
        const Tokens tokens = Tokenise(text);
        Batch batch = ParseBatch(text, tokens);
        for (const StatementPtr& statement : batch.statements) {
            if (const auto* create = statement->If<CreateTableStatement>()) catalog.Put(catalog.Define(*create));
            if (const auto* alter = statement->If<AlterTableStatement>()) catalog.Put(catalog.Define(*alter));
            if (const auto* index = statement->If<CreateIndexStatement>()) catalog.Put(catalog.Define(*index));
        }
    }
    plans_.Clear();
    catalog_.Replace(std::move(catalog));
    schema_version_ = version;
    stale_ = false;
}

bool Database::Refresh() {
    version_.Step(connection_);
    const std::int64_t version = version_.Column(0).integer;
    version_.Reset();
    if (version == schema_version_ && !stale_) return false;
    Load();
    return true;
}

void Database::Remember(const std::string& table, const std::string& object, const std::string& text) {
    SqliteStatement insert = connection_.Prepare(R"(INSERT INTO "lumo$ddl"("table", object, text) VALUES (?1, ?2, ?3))");
    const std::string folded_table = FoldName(table);
    const std::string folded_object = FoldName(object);
    insert.Bind(1, Value::Text(folded_table));
    insert.Bind(2, Value::Text(folded_object));
    insert.Bind(3, Value::Text(text));
    insert.Step(connection_);
    insert.Reset();
}

const Catalog& Database::Tables() {
    try {
        GetReady();
    } catch (const Refusal&) {
        // What was known last has to do.
        return catalog_;
    }
    return catalog_;
}

void Database::TableChanged(std::unique_ptr<Table> table) noexcept {
    stale_ = true;
    schema_touched_ = transactions_ > 0;
    try {
        catalog_.Put(std::move(table));
        SchemaChanged();
        stale_ = false;
    } catch (...) {
        // The change is done; the next text reads the tables anew.
        return;
    }
}

void Database::TableDropped(const std::string& name) noexcept {
    stale_ = true;
    schema_touched_ = transactions_ > 0;
    try {
        catalog_.Drop(name);
        SchemaChanged();
        stale_ = false;
    } catch (...) {
        return;
    }
}

void Database::SchemaChanged() {
    plans_.Clear();
    version_.Step(connection_);
    schema_version_ = version_.Column(0).integer;
    version_.Reset();
}

void Database::Compile(Plan& plan, Statement& statement, const std::vector<Literal>& literals) {
    std::vector<std::uint32_t> fixed;
    Checker checker(catalog_, plan.variables, literals, fixed);
    statement.compiled.clear();
    if (auto* select = statement.If<SelectStatement>()) {
        checker.Check(*select);
        Add(statement, connection_, PrintSelect(*select->select));
        CompiledStatement& compiled = *statement.compiled.back();
        compiled.types = select->select->types;
        compiled.names = std::make_shared<const StoredRows::Names>(select->select->names);
    } else if (auto* insert = statement.If<InsertStatement>()) {
        checker.Check(*insert);
        Add(statement, connection_, PrintInsert(*insert));
    } else if (auto* update = statement.If<UpdateStatement>()) {
        checker.Check(*update);
        Add(statement, connection_, PrintUpdate(*update));
    } else if (auto* erase = statement.If<DeleteStatement>()) {
        checker.Check(*erase);
        Add(statement, connection_, PrintDelete(*erase));
    } else if (auto* set = statement.If<SetStatement>()) {
        checker.Check(*set);
        Add(statement, connection_, PrintValue(*set->value));
    } else if (auto* condition = statement.If<IfStatement>()) {
        checker.CheckCondition(condition->condition);
        Add(statement, connection_, PrintValue(*condition->condition));
    } else if (auto* declare = statement.If<DeclareStatement>()) {
        checker.Declare(*declare);
        for (const auto& variable : declare->variables) {
            if (variable.value) Add(statement, connection_, PrintValue(*variable.value));
        }
    }
    statement.is_compiled = true;
    for (const std::uint32_t literal : fixed) plan.fixed.push_back({literal, std::string(literals[literal].text)});
}

// What names a table that is not there, or that a statement before it changes, is left until it is reached.
void Database::CompileAll(Plan& plan, std::vector<StatementPtr>& statements, const std::vector<Literal>& literals) {
    for (StatementPtr& statement : statements) {
        const bool known = std::ranges::all_of(statement->tables, [&](const std::string& name) {
            if (!plan.changed_tables.empty() && plan.changed_tables.contains(FoldName(name))) return false;
            return catalog_.Find(name) != nullptr;
        });
        plan.whole = plan.whole && known;
        if (known) {
            try {
                Compile(plan, *statement, literals);
            } catch (Refusal& refusal) {
                if (refusal.Place() == kNoPlace) refusal.SetPlace(statement->place);
                throw;
            }
        }
        if (plan.batch.changes_schema) NoteChanges(*statement, plan.changed_tables);
        if (auto* block = statement->If<BlockStatement>()) CompileAll(plan, block->statements, literals);
        if (auto* condition = statement->If<IfStatement>()) {
            std::vector<StatementPtr> parts;
            const bool both = condition->otherwise != nullptr;
            parts.push_back(std::move(condition->then));
            if (both) parts.push_back(std::move(condition->otherwise));
            CompileAll(plan, parts, literals);
            condition->then = std::move(parts[0]);
            if (both) condition->otherwise = std::move(parts[1]);
        }
    }
}

std::shared_ptr<Plan> Database::MakePlan(std::string_view text) {
    const Tokens tokens = Tokenise(text);
    auto plan = std::make_shared<Plan>();
    plan->batch = ParseBatch(text, tokens);
    plan->shape = shape_;
    for (const std::uint32_t literal : plan->batch.fixed_literals) {
        plan->fixed.push_back({literal, std::string(tokens.literals[literal].text)});
    }
    CompileAll(*plan, plan->batch.statements, tokens.literals);
    literals_ = tokens.literals;
    return plan;
}

void Database::GetReady() {
    catalog_.Forget();
    if (connection_.InTransaction() && transactions_ == 0) {
        if (const int code = connection_.TakeBack(); connection_.InTransaction()) connection_.RefuseFailure(code);
    }
    if (stale_) Load();
}

void Database::Settle(Outcome& outcome) noexcept {
    if (transactions_ == 0) {
        connection_.TakeBack();
        return;
    }
    if (connection_.InTransaction()) return;
    // SQLite took the transaction back of itself: the disk is full, the file cannot be read, memory ran out.
    transactions_ = 0;
    stale_ = stale_ || schema_touched_;
    schema_touched_ = false;
    outcome.taken_back = true;
}

Outcome Database::Run(std::string_view text) {
    Outcome outcome;
    try {
        RunText(text, outcome);
    } catch (const std::bad_alloc&) {
        outcome.out_of_memory = true;
    }
    Settle(outcome);
    return outcome;
}

void Database::RunText(std::string_view text, Outcome& outcome) {
    try {
        if (const std::size_t bad = FirstBadByte(text); bad != std::string_view::npos) {
            Refuse(Refused::kSyntax, "The text is not UTF-8.", bad);
        }
        GetReady();
        const bool has_shape = shapes_.Read(text, shape_, literals_);
        constexpr int kMostAttempts = 10;
        for (int attempt = 0;; ++attempt) {
            std::shared_ptr<Plan> plan = has_shape ? plans_.Find(shape_, literals_) : nullptr;
            if (!plan) {
                if (!InMemory() && transactions_ == 0) Refresh();
                plan = MakePlan(text);
                if (plan->whole && !plan->batch.changes_schema) plans_.Keep(plan);
            }
            Runner runner(*this, *plan, literals_, outcome);
            if (runner.Run() || attempt == kMostAttempts) break;
            outcome = {};
        }
    } catch (const Refusal& refusal) {
        if (!outcome.refusal) outcome.refusal = refusal;
    } catch (const Error& error) {
        if (!outcome.refusal) outcome.refusal = Refusal(Refused::kStorage, error.Description());
    }
}

}  // namespace LumoConnection::Embedded
