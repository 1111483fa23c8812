#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <LumoConnection/embedded/catalog.h>
#include <LumoConnection/embedded/plan.h>
#include <LumoConnection/embedded/refusal.h>
#include <LumoConnection/embedded/shape_reader.h>
#include <LumoConnection/embedded/sqlite.h>
#include <LumoConnection/stored_rows.h>

namespace LumoConnection::Embedded {

/// How a text went.
struct Outcome {
    /// The rows of the first statement that yields any; null where none does.
    std::shared_ptr<StoredRows> rows;
    /// Those of the statements behind it, where they are kept.
    std::vector<std::shared_ptr<StoredRows>> further_rows;
    /// The types of its columns.
    std::vector<Type> types;
    /// The first refusal. Statements behind it may have run all the same.
    std::optional<Refusal> refusal;
    /// Memory ran out, with or without a refusal before.
    bool out_of_memory = false;
    /// The failure took back the transaction that the text, or one before it, had opened.
    bool taken_back = false;
    /// Rows changed by the last INSERT, UPDATE or DELETE, or selected by the last SELECT; -1 where there was none.
    std::int64_t affected = -1;
};

/// A database file, or a database in memory, that speaks T-SQL. For one thread at a time.
class Database {
  public:
    struct Options {
        std::string file;  // or ":memory:"
        std::string user;
        bool sync_full = true;
        int timeout_seconds = 30;
        bool read_only = false;
    };

    /// Opens the file and creates it where there is none, unless it is to be read only. Refuses what is no database of
    /// this kind.
    explicit Database(Options options);

    /// Runs a text as one batch. What goes wrong is in the outcome.
    Outcome Run(std::string_view text);
    /// From here on, or no longer: Outcome::further_rows.
    void KeepFurtherRows(bool keep) noexcept { keeps_further_rows_ = keep; }

    const Catalog& Tables();
    const PlanStore& Plans() const { return plans_; }

  private:
    friend class Runner;

    void Prepare();
    bool IsOurs();
    /// Takes back what an earlier text could not take back, and reads the tables anew where they are not known.
    void GetReady();
    /// Leaves no transaction open but one that the text has opened.
    void Settle(Outcome& outcome) noexcept;
    void RunText(std::string_view text, Outcome& outcome);
    void Load();
    /// Reads the tables anew if another connection has changed them. True if so.
    bool Refresh();
    void Remember(const std::string& table, const std::string& object, const std::string& text);
    /// Takes over what a definition has done to a table, or to the one that it dropped; cannot fail.
    void TableChanged(std::unique_ptr<Table> table) noexcept;
    void TableDropped(const std::string& name) noexcept;
    void SchemaChanged();
    std::shared_ptr<Plan> MakePlan(std::string_view text);
    /// Leaves what names a table that is not there yet; plan.whole tells.
    void CompileAll(Plan& plan, std::vector<StatementPtr>& statements, const std::vector<Literal>& literals);
    void Compile(Plan& plan, Statement& statement, const std::vector<Literal>& literals);

    bool InMemory() const { return options_.file == ":memory:" || options_.file.empty(); }

    Options options_;
    SqliteConnection connection_;
    Catalog catalog_;
    PlanStore plans_;
    SqliteStatement begin_;
    SqliteStatement commit_;
    SqliteStatement version_;
    std::int64_t schema_version_ = 0;
    bool stale_ = true;  // the catalogue is not what the file says
    int transactions_ = 0;
    bool schema_touched_ = false;  // by the open transaction
    std::int64_t row_count_ = 0;
    bool keeps_further_rows_ = false;
    ShapeReader shapes_;
    std::string shape_;
    std::vector<Literal> literals_;
    /// Texts made for the statement that runs, one for each of its parameters.
    std::vector<std::string> buffers_;
};

}  // namespace LumoConnection::Embedded
