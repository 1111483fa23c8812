#include <fmt/format.h>

#include <memory>
#include <utility>

#include "frontend/commands/commands.h"
#include "frontend/context.h"
#include "frontend/creation.h"
#include "frontend/exit_codes.h"
#include "frontend/output/progress.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

struct InitOptions {
    bool sample = false;
    bool force = false;
    std::vector<std::string> schema;
};

std::vector<Script> ReadSchema(const InitOptions& options) {
    if (options.schema.empty()) return SchemaScripts();
    std::vector<Script> scripts;
    for (const auto& file : options.schema) scripts.push_back(ReadScript(file));
    return scripts;
}

std::vector<Text> TablesOf(const std::vector<Script>& scripts) {
    std::vector<Text> names;
    for (const auto& script : scripts) {
        for (auto& name : CreatedTables(script)) names.push_back(std::move(name));
    }
    return names;
}

Text Rows(const std::vector<TableSize>& tables) {
    std::int64_t rows = 0;
    for (const auto& table : tables) rows += table.rows;
    return fmt::format("{} row{}", rows, rows == 1 ? "" : "s");
}

void RunWithProgress(const Ref<DataSession>& session, const Script& script, bool pass_over_refusals) {
    const std::size_t count = script.batches.size();
    Progress progress(script.path.filename().string(), count);
    std::vector<Text> refusals;
    RunScript(
        session, script, [&] { progress.Step(); },
        [&](const Text& refusal) {
            refusals.push_back(refusal);
            return pass_over_refusals;
        });
    progress.Finish(fmt::format("{} of {} batches done", count - refusals.size(), count));
    for (const auto& refusal : refusals) fmt::print(stderr, "passed over: {}\n", refusal);
}

int Init(Context& context, const InitOptions& options) {
    const auto schema = ReadSchema(options);
    const auto names = TablesOf(schema);
    const auto& session = context.Session(MissingFile::kCreate);
    const auto there = ExistingTables(session, names);
    if (!there.empty() && !options.force) {
        fmt::print(stderr,
                   "lumoseminar: {} of the {} tables are there already, with {}. Nothing was changed.\n"
                   "--force adds what is missing; it drops nothing.\n",
                   there.size(), names.size(), Rows(there));
        return kRefused;
    }
    for (const auto& script : schema) RunWithProgress(session, script, options.force);
    if (options.sample) {
        for (const auto& script : SampleScripts()) RunWithProgress(session, script, false);
    }

    const auto tables = ExistingTables(session, names);
    Sheet sheet{{"Table", "Rows"}, {}};
    for (const auto& table : tables) sheet.rows.push_back({table.name, table.rows});
    context.Print(sheet);
    context.Note(fmt::format("{} table{}, {}", tables.size(), tables.size() == 1 ? "" : "s", Rows(tables)));
    if (tables.size() == names.size()) return kDone;
    fmt::print(stderr, "lumoseminar: {} of {} tables are missing.\n", names.size() - tables.size(), names.size());
    return kRefused;
}

}  // namespace

void AddInit(Command& program) {
    auto& command = program.Add("init", "Create the tables, with a sample of data if wanted");
    const auto options = std::make_shared<InitOptions>();
    command.Flag("--sample", options->sample, "Fill the tables with the sample: a training department of two clients");
    command
        .Option("--schema", &options->schema, "FILE",
                "Run these files of T-SQL (batches parted by GO lines) in place of schema.sql and "
                "process.sql")
        .ExistingFile();
    command.Flag("--force", options->force,
                 "Go on where tables are there already: what is missing is created, a batch that is refused is told "
                 "and passed over, nothing is dropped");
    command.Does([options](Context& context) { return Init(context, *options); });
}

}  // namespace frontend
