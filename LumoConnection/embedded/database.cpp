#include <LumoConnection/embedded/database.h>

#include <algorithm>
#include <new>

#include <LumoConnection/embedded/lexer.h>
#include <LumoConnection/embedded/parser.h>
#include <LumoConnection/embedded/run.h>
#include <LumoConnection/embedded/utf8.h>

namespace LumoConnection::Embedded {
namespace {

constexpr std::int64_t kApplication = 0x4C756D6F;  // "Lumo"
constexpr std::int64_t kFormat = 1;

void Add(Statement& statement, SqliteConnection& connection, Printed printed) {
    auto compiled = std::make_unique<CompiledStatement>();
    compiled->statement = connection.Prepare(printed.sql);
    compiled->parameters = std::move(printed.parameters);
    statement.compiled.push_back(std::move(compiled));
}

}  // namespace

Database::Database(Options options)
    : options_(std::move(options)), connection_(options_.file, options_.sync_full, options_.timeout_seconds) {
    Prepare();
    begin_ = connection_.Prepare("BEGIN IMMEDIATE");
    commit_ = connection_.Prepare("COMMIT");
    version_ = connection_.Prepare("PRAGMA schema_version");
    Load();
}

void Database::Prepare() {
    const auto is_ours = [this] {
        const std::int64_t application = connection_.Number("PRAGMA application_id");
        if (application == 0 && connection_.Number("SELECT count(*) FROM sqlite_schema") == 0) return false;
        if (application != kApplication) {
            Refuse(Refused::kCannotOpen, "The file '" + options_.file + "' is a database of another program.");
        }
        const std::int64_t format = connection_.Number("PRAGMA user_version");
        if (format > kFormat) {
            Refuse(Refused::kCannotOpen, "The file '" + options_.file + "' was written by a newer version: its format is " +
                                             std::to_string(format) + ", known is " + std::to_string(kFormat) + ".");
        }
        return true;
    };
    if (is_ours()) return;
    if (!InMemory()) connection_.Run("PRAGMA journal_mode = WAL");
    connection_.Run("BEGIN IMMEDIATE");
    try {
        // Another process may have been quicker.
        if (!is_ours()) {
            connection_.Run(R"(CREATE TABLE "lumo$ddl"(id INTEGER PRIMARY KEY, "table" TEXT NOT NULL, object TEXT NOT NULL, text TEXT NOT NULL) STRICT)");
            connection_.Run("PRAGMA application_id = " + std::to_string(kApplication));
            connection_.Run("PRAGMA user_version = " + std::to_string(kFormat));
        }
        connection_.Run("COMMIT");
    } catch (...) {
        if (connection_.InTransaction()) connection_.Run("ROLLBACK");
        throw;
    }
}

// The tables are read from the definitions in the words in which they were run.
void Database::Load() {
    catalog_.Clear();
    plans_.Clear();
    SqliteStatement rows = connection_.Prepare(R"(SELECT text FROM "lumo$ddl" ORDER BY id)");
    while (rows.Step(connection_)) {
        const std::string text(rows.Column(0).text);
        const Tokens tokens = Tokenise(text);
        Batch batch = ParseBatch(text, tokens);
        for (const StatementPtr& statement : batch.statements) {
            if (const auto* create = statement->If<CreateTableStatement>()) catalog_.Put(catalog_.Define(*create));
            if (const auto* alter = statement->If<AlterTableStatement>()) catalog_.Put(catalog_.Define(*alter));
            if (const auto* index = statement->If<CreateIndexStatement>()) catalog_.Put(catalog_.Define(*index));
        }
    }
    rows.Reset();
    version_.Step(connection_);
    schema_version_ = version_.Column(0).integer;
    version_.Reset();
}

bool Database::Refresh() {
    version_.Step(connection_);
    const std::int64_t version = version_.Column(0).integer;
    version_.Reset();
    if (version == schema_version_) return false;
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

void Database::SchemaChanged() {
    plans_.Clear();
    if (transactions_ > 0) schema_touched_ = true;
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

// What names a table that is not there is left until it is reached: a statement before it may create the table.
void Database::CompileAll(Plan& plan, std::vector<StatementPtr>& statements, const std::vector<Literal>& literals) {
    for (StatementPtr& statement : statements) {
        const bool known = std::ranges::all_of(
            statement->tables, [this](const std::string& name) { return catalog_.Find(name) != nullptr; });
        plan.whole = plan.whole && known;
        if (known) {
            try {
                Compile(plan, *statement, literals);
            } catch (Refusal& refusal) {
                if (refusal.Place() == kNoPlace) refusal.SetPlace(statement->place);
                throw;
            }
        }
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

Outcome Database::Run(std::string_view text) {
    Outcome outcome;
    try {
        if (const std::size_t bad = FirstBadByte(text); bad != std::string_view::npos) {
            Refuse(Refused::kSyntax, "The text is not UTF-8.", bad);
        }
        const bool has_shape = ReadShape(text, shape_, literals_);
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
    } catch (const std::bad_alloc&) {
        if (!outcome.refusal)
            outcome.refusal = Refusal(Refused::kOutOfMemory, "There is insufficient memory to run this text.");
    }
    if (connection_.InTransaction() && transactions_ == 0) connection_.Run("ROLLBACK");
    if (!connection_.InTransaction() && transactions_ > 0) {
        // SQLite took the transaction back of itself: the disk is full, the file cannot be read.
        transactions_ = 0;
        if (schema_touched_) Load();
        schema_touched_ = false;
    }
    return outcome;
}

}  // namespace LumoConnection::Embedded
