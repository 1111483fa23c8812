#include <LumoConnection/tables/create_tables.h>

#include <LumoSeminar/frame/clock.h>

#include <LumoConnection/tables/sample_year.h>

namespace LumoConnection {
namespace {

// Taken back at its end, unless it was committed.
class Transaction {
  public:
    explicit Transaction(Ref<DataSession> session) : session_(std::move(session)) { Run("BEGIN TRANSACTION"); }
    ~Transaction() {
        if (committed_) return;
        try {
            (void)session_->ExecuteSql("ROLLBACK TRANSACTION");
        } catch (...) {
            // The failure that led here is the one to tell; the database takes back what is never committed.
            return;
        }
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void Commit() {
        Run("COMMIT TRANSACTION");
        committed_ = true;
    }

  private:
    void Run(const char* sql) {
        if (!session_->ExecuteSql(sql)) RaiseRefused(session_->LastErrorText());
    }

    Ref<DataSession> session_;
    bool committed_ = false;
};

int DefaultSampleYear() {
    const std::chrono::year_month_day today{Today().Date()};
    return static_cast<int>(today.year()) - 1;
}

}  // namespace

bool RunFiles(const Ref<DataSession>& session, const std::vector<SqlFile>& files, const CreationProgress& progress,
              const CreationOptions& options) {
    CreationStep step;
    for (const SqlFile& file : files) step.all_batches += file.batches.size();
    std::optional<Transaction> transaction;
    if (options.one_transaction) transaction.emplace(session);
    for (const SqlFile& file : files) {
        step.file = file.name;
        step.batches = file.batches.size();
        step.batch = 0;
        for (const Batch& batch : file.batches) {
            if (!session->ExecuteSql(batch.text)) {
                const Text refusal =
                    file.name + ", batch from line " + std::to_string(batch.line) + ": " + session->LastErrorText();
                if (!options.passes_over || !options.passes_over(refusal)) RaiseRefused(refusal);
            }
            step.line = batch.line;
            ++step.batch;
            ++step.batch_of_all;
            if (progress && !progress(step)) return false;
        }
    }
    if (transaction) transaction->Commit();
    return true;
}

std::vector<SqlFile> TableFiles(Contents contents, const CreationOptions& options, const std::filesystem::path& package) {
    const std::filesystem::path folder = SchemaFolder(options.schema, package);
    std::vector<SqlFile> files = {ReadSqlFile(folder / "schema.sql"), ReadSqlFile(folder / "process.sql")};
    if (contents == Contents::kEmpty) return files;
    const SampleMove move(options.sample_year ? *options.sample_year : DefaultSampleYear());
    for (const char* name : {"sample.sql", "process_sample.sql"}) {
        SqlFile& file = files.emplace_back(ReadSqlFile(folder / name));
        for (Batch& batch : file.batches) batch.text = move.Moved(batch.text);
    }
    return files;
}

bool CreateTables(const Ref<DataSession>& session, Contents contents, const CreationProgress& progress,
                  const CreationOptions& options, const std::filesystem::path& package) {
    return RunFiles(session, TableFiles(contents, options, package), progress, options);
}

std::vector<TableSize> ExistingTables(const Ref<DataSession>& session, const std::vector<Text>& names) {
    std::vector<TableSize> tables;
    for (const Text& name : names) {
        const Variant rows = session->LookupValue("count(*)", name, "");
        if (!rows.IsNull()) tables.push_back({name, To<Int32>(rows)});
    }
    return tables;
}

}  // namespace LumoConnection
