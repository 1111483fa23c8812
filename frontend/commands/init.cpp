#include <LumoConnection/connection_text.h>
#include <LumoConnection/tables/create_tables.h>
#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <memory>
#include <optional>
#include <utility>

#include "frontend/asking.h"
#include "frontend/commands/commands.h"
#include "frontend/context.h"
#include "frontend/dry_run.h"
#include "frontend/exit_codes.h"
#include "frontend/new_file.h"
#include "frontend/output/counted.h"
#include "frontend/output/progress.h"
#include "frontend/read_value.h"
#include "frontend/stop_signals.h"

namespace frontend {

using namespace LumoSeminar;
using LumoConnection::SqlFile;
using LumoConnection::TableSize;

namespace {

struct InitOptions {
    bool sample = false;
    bool force = false;
    bool reset = false;
    std::optional<std::string> sample_year;
    std::vector<std::string> schema;
};

std::vector<SqlFile> ReadFiles(const InitOptions& options) {
    LumoConnection::CreationOptions creation;
    if (options.sample_year) creation.sample_year = ReadInt32("--sample-year", *options.sample_year);
    const auto contents = options.sample ? LumoConnection::kWithSample : LumoConnection::kEmpty;
    if (options.schema.empty()) return LumoConnection::TableFiles(contents, creation);
    std::vector<SqlFile> files;
    for (const auto& file : options.schema) files.push_back(LumoConnection::ReadSqlFile(file));
    if (options.sample) {
        auto of_sample = LumoConnection::TableFiles(contents, creation);
        const auto behind_schema =
            of_sample.begin() + static_cast<std::ptrdiff_t>(LumoConnection::TableFiles(LumoConnection::kEmpty).size());
        std::move(behind_schema, of_sample.end(), std::back_inserter(files));
    }
    return files;
}

std::vector<Text> TablesOf(const std::vector<SqlFile>& files) {
    std::vector<Text> names;
    for (const auto& file : files) std::ranges::move(LumoConnection::CreatedTables(file), std::back_inserter(names));
    return names;
}

// Those that refer to another one are made behind it, so that they go first.
SqlFile Drops(const std::vector<TableSize>& tables) {
    SqlFile file{"drop", {}};
    for (auto table = tables.rbegin(); table != tables.rend(); ++table) {
        file.batches.push_back({"DROP TABLE " + table->name, static_cast<int>(file.batches.size()) + 1});
    }
    return file;
}

Text Rows(const std::vector<TableSize>& tables) {
    std::size_t rows = 0;
    for (const auto& table : tables) rows += static_cast<std::size_t>(table.rows);
    return Counted(rows, "row");
}

// A bar for each file.
class Bars {
  public:
    explicit Bars(const std::vector<SqlFile>& files) : files_(files), next_(files_.begin()) { Next(); }

    void Step(const LumoConnection::CreationStep& step) {
        bar_->Step();
        if (step.batch < step.batches) return;
        bar_->Finish(fmt::format("{} of {} batches done", step.batches - refusals_.size(), step.batches));
        for (const auto& refusal : refusals_) fmt::print(stderr, "passed over: {}\n", refusal);
        refusals_.clear();
        Next();
    }

    void PassOver(const Text& refusal) { refusals_.push_back(refusal); }

  private:
    void Next() {
        bar_.reset();
        next_ = std::find_if(next_, files_.end(), [](const SqlFile& file) { return !file.batches.empty(); });
        if (next_ == files_.end()) return;
        bar_.emplace(next_->name, next_->batches.size());
        ++next_;
    }

    const std::vector<SqlFile>& files_;
    std::vector<SqlFile>::const_iterator next_;
    std::optional<Progress> bar_;
    std::vector<Text> refusals_;
};

// All or nothing; with --force what can be done.
// @return whether it was not interrupted
bool RunAll(const Ref<DataSession>& session, const std::vector<SqlFile>& files, bool force) {
    Bars bars(files);
    LumoConnection::CreationOptions options;
    options.one_transaction = !force;
    options.passes_over = [&](const Text& refusal) {
        if (force) bars.PassOver(refusal);
        return force;
    };
    const auto Step = [&](const LumoConnection::CreationStep& step) {
        bars.Step(step);
        return StopSignals::Came() == 0;
    };
    return LumoConnection::RunFiles(session, files, Step, options);
}

int TellInterrupted(bool force) {
    fmt::print(stderr, "lumoseminar: Interrupted. {}\n",
               force ? "What was made until then stays." : "Nothing was made, nothing was changed.");
    constexpr int kEndedBySignal = 128;
    return kEndedBySignal + StopSignals::Came();
}

int PrintTables(const Context& context, const Ref<DataSession>& session, const std::vector<Text>& names) {
    const auto tables = LumoConnection::ExistingTables(session, names);
    Sheet sheet{{"Table", "Rows"}, {}};
    for (const auto& table : tables) sheet.rows.push_back({table.name, table.rows});
    context.Print(sheet);
    context.Note(fmt::format("{}, {}", Counted(tables.size(), "table"), Rows(tables)));
    if (tables.size() == names.size()) return kDone;
    fmt::print(stderr, "lumoseminar: {} of {} tables are missing.\n", names.size() - tables.size(), names.size());
    return kRefused;
}

// The place of a database file that is not there yet.
std::optional<LumoConnection::EmbeddedTarget> MissingFileOf(const Text& connection_text) {
    if (!LumoConnection::AsksForEmbedded(connection_text)) return std::nullopt;
    auto target = LumoConnection::ReadEmbeddedTarget(connection_text);
    std::error_code failed;
    const bool is_missing = target.file != ":memory:" && !target.read_only &&
                            !std::filesystem::exists(std::filesystem::symlink_status(target.file, failed));
    return is_missing ? std::optional(std::move(target)) : std::nullopt;
}

int InitNewFile(Context& context, const LumoConnection::EmbeddedTarget& target, const std::vector<SqlFile>& files,
                const InitOptions& options) {
    NewFile file(target.file);
    int code = kRefused;
    {
        auto opened = context.OpenBeside(file.Name());
        if (!RunAll(opened.session, files, options.force)) return TellInterrupted(false);
        code = PrintTables(context, opened.session, TablesOf(files));
        opened.embedded->Close();
    }
    file.PutInPlace();
    return code;
}

int RefuseTables(const std::vector<TableSize>& there, std::size_t all) {
    fmt::print(stderr,
               "lumoseminar: {} of the {} tables are there already, with {}. Nothing was changed.\n"
               "--force adds what is missing and drops nothing; --reset drops them and makes them anew.\n",
               there.size(), all, Rows(there));
    return kRefused;
}

int ShowBatches(const Context& context, const std::vector<SqlFile>& files) {
    std::vector<Text> texts;
    for (const auto& file : files) {
        for (const auto& batch : file.batches) texts.push_back(batch.text);
    }
    PrintStatements(context, texts);
    context.Note(fmt::format("{} batches, none of them sent", texts.size()));
    return kDone;
}

int Init(Context& context, const InitOptions& options) {
    auto files = ReadFiles(options);
    const auto names = TablesOf(files);
    const auto missing = MissingFileOf(context.ConnectionText());
    const StopSignals signals;
    if (missing) {
        return context.options.dry_run ? ShowBatches(context, files) : InitNewFile(context, *missing, files, options);
    }
    const auto& session = context.AnyDatabase(MissingFile::kCreate);
    const auto there = LumoConnection::ExistingTables(session, names);
    if (!there.empty() && !options.force && !options.reset) return RefuseTables(there, names.size());
    if (options.reset && !there.empty()) files.insert(files.begin(), Drops(there));
    if (context.options.dry_run) return ShowBatches(context, files);
    if (options.reset && !there.empty()) {
        const auto MayReset = [&] {
            return Question{
                fmt::format("{} with {} would be dropped, and made anew.\n", Counted(there.size(), "table"), Rows(there)),
                "Drop them?", "Nothing was changed."};
        };
        if (!IsAgreedOrYes(context, MayReset)) return kRefused;
    }
    if (!RunAll(session, files, options.force)) return TellInterrupted(options.force);
    return PrintTables(context, session, names);
}

}  // namespace

void AddInit(Command& program) {
    auto& command = program.Add("init", "Create the tables, with a sample of data if wanted");
    const auto options = std::make_shared<InitOptions>();
    command.Flag("--sample", options->sample, "Fill the tables with the sample: a training department of two clients");
    command
        .Option("--sample-year", &options->sample_year, "YEAR",
                "The first of the two years that the sample tells of [last year, so that the present is the second]")
        .Needs("--sample");
    command
        .Option("--schema", &options->schema, "FILE",
                "Run these files of T-SQL (batches parted by GO lines) in place of schema.sql and "
                "process.sql")
        .ExistingFile();
    command.Flag("--force", options->force,
                 "Go on where tables are there already: what is missing is created, a batch that is refused is told "
                 "and passed over, nothing is dropped");
    command
        .Flag("--reset", options->reset, "Drop the tables that init makes, with all that is in them, and make them anew")
        .Excludes("--force");
    command.Remark(
        "All or nothing: a new file gets its name when it is complete, and a database that is there is changed in one "
        "transaction. What is refused or interrupted leaves nothing behind; --force alone goes batch by batch. --dry-run "
        "prints the batches.");
    command.Asks();
    command.Writes(DryRun::kOwn);
    command.Does([options](Context& context) { return Init(context, *options); });
}

}  // namespace frontend
