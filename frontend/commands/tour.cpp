#include <fmt/format.h>

#include "frontend/commands/commands.h"
#include "frontend/context.h"
#include "frontend/creation.h"
#include "frontend/exit_codes.h"
#include "frontend/sessions.h"
#include "frontend/tour/chapters.h"
#include "frontend/tour/ground.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

constexpr const char* kFreshDatabase = "Provider=Embedded;Data Source=:memory:";

class Tour {
  public:
    Tour(const GeneralOptions& options, TourPage& page) : options_(options), page_(page), ground_{page, nullptr} {}

    void Walk() {
        page_.Title("A walk through the seminar administration");
        Connect();
        WalkCatalogue(ground_);
        WalkScheduling(ground_);
        WalkEnrolment(ground_);
        WalkApproval(ground_);
        page_.End();
    }

  private:
    void Connect() {
        const bool fresh = !options_.connect;
        const Login login{options_.connect.value_or(kFreshDatabase), options_.user, options_.password};
        page_.Step("Connect", fresh ? "The tour makes a database of its own in memory. The tables come from schema.sql and process.sql, "
                                      "the rows from their samples: T-SQL, the same files as for the server."
                                    : "The tour walks on the database that it was given. Where it finds no tables it makes them and "
                                      "fills in the sample. What it adds it removes again.");
        const auto trace = options_.trace ? TraceToStandardError() : nullptr;
        page_.Call("session->Connect(connection_text, user, password, 30)", [&] {
            const auto watcher = [this, trace](const LumoConnection::TracedCall& call) {
                page_.Watch(call);
                if (trace) trace(call);
            };
            ground_.session = OpenSession(login, MissingFile::kCreate, watcher).session;
        });
        std::vector<Text> names;
        std::size_t created = 0;
        const auto schema = SchemaScripts();
        for (const auto& script : schema) {
            const auto of_script = CreatedTables(script);
            names.insert(names.end(), of_script.begin(), of_script.end());
            if (!ExistingTables(ground_.session, of_script).empty()) continue;
            Run(script);
            ++created;
        }
        if (created == schema.size()) {
            for (const auto& script : SampleScripts()) Run(script);
        }
        const auto tables = ExistingTables(ground_.session, names);
        std::int64_t rows = 0;
        for (const auto& table : tables) rows += table.rows;
        page_.Outcome(tables.size() == names.size() && rows > 0,
                      fmt::format("{}, {}", Counted(tables.size(), "table"), Counted(static_cast<std::size_t>(rows), "row")));
        ground_.client = options_.client ? *options_.client : ActiveClient(ground_.session);
    }

    void Run(const Script& script) {
        page_.Call(
            fmt::format("session->ExecuteSql(batch)   // for each batch of {}", script.path.filename().string()),
            [&] { RunScript(ground_.session, script, [] {}); },
            [&] { return fmt::format("{} batches, all done", page_.Sent()); });
    }

    const GeneralOptions& options_;
    TourPage& page_;
    TourGround ground_;
};

int WalkTour(Context& context) {
    if (context.options.format != Format::kTable)
        throw UsageError("The tour is a text to read: it has no other format.");
    TourPage page;
    Tour(context.options, page).Walk();
    return page.Untold() == 0 ? kDone : kRefused;
}

}  // namespace

void AddTour(Command& program) {
    auto& command = program.Add("tour", "Walk through what there is: calls, statements, outcomes");
    command.Remark(
        "Without --connect the tour makes a database of its own in memory, so that it runs anywhere. On a given\n"
        "database it uses the tables that are there, or creates them with the sample; what it adds it removes again.\n"
        "Each outcome is checked: one that is not as told gives the exit code 1.");
    command.Does([](Context& context) { return WalkTour(context); });
}

}  // namespace frontend
