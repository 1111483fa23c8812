#include <LumoConnection/tables/create_tables.h>
#include <fmt/format.h>

#include <csignal>
#include <memory>
#include <optional>
#include <span>
#include <system_error>

#include "frontend/command_line/parser.h"
#include "frontend/commands/commands.h"
#include "frontend/context.h"
#include "frontend/exit_codes.h"
#include "frontend/output/screen_text.h"
#include "frontend/sessions.h"
#include "frontend/tour/chapters.h"
#include "frontend/tour/commands_to_try.h"
#include "frontend/tour/ground.h"
#include "frontend/tour/interruption.h"
#include "frontend/tour/pause.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

constexpr const char* kFreshDatabase = "Provider=Embedded;Data Source=:memory:";

// What the tour tells is told of the sample as it stands in its files.
constexpr int kYear = 2009;

// Makes what is missing of the tables, and fills in the sample where there were none.
void MakeTables(const Ref<DataSession>& session, TourPage& page) {
    const auto Run = [&](const LumoConnection::SqlFile& file) {
        page.Call(
            fmt::format("session->ExecuteSql(batch)   // for each batch of {}", file.name),
            [&] { static_cast<void>(LumoConnection::RunFiles(session, {file})); },
            [&] { return fmt::format("{} batches, all done", page.Sent()); });
    };
    std::vector<Text> names;
    bool is_empty = true;
    for (const auto& file : LumoConnection::TableFiles(LumoConnection::kWithSample, {.sample_year = kYear})) {
        const auto of_file = LumoConnection::CreatedTables(file);
        names.insert(names.end(), of_file.begin(), of_file.end());
        // Behind the tables comes the sample, for a database that had none of them.
        const bool is_there = !LumoConnection::ExistingTables(session, of_file).empty();
        if (is_there) is_empty = false;
        if (of_file.empty() ? is_empty : !is_there) Run(file);
    }
    const auto tables = LumoConnection::ExistingTables(session, names);
    std::int64_t rows = 0;
    for (const auto& table : tables) rows += table.rows;
    page.Outcome(tables.size() == names.size() && rows > 0,
                 fmt::format("{}, {}", Counted(tables.size(), "table"), Counted(static_cast<std::size_t>(rows), "row")));
}

class Tour {
  public:
    Tour(const Context& context, TourPage& page)
        : options_(context.options),
          fresh_(!options_.connect && !options_.database),
          connection_text_(fresh_ ? kFreshDatabase : context.ConnectionText()),
          page_(page),
          ground_{page, nullptr, 0, {}} {}

    /// Chapter after chapter; on a terminal it stops behind each but the last.
    void Walk(std::span<const Chapter> chapters) {
        const bool all = chapters.size() > 1;
        page_.Hold();
        Connect();
        for (const auto& chapter : chapters) {
            if (chapter.prepare != nullptr) chapter.prepare(ground_);
        }
        page_.Open("A walk through the seminar administration",
                   all ? Story(ground_) : chapters.front().who_wants_what(ground_));
        for (std::size_t i = 0; i < chapters.size(); ++i) {
            const auto& chapter = chapters[i];
            if (all) {
                page_.Chapter(fmt::format("Chapter {} of {}: {}", i + 1, chapters.size(), chapter.name),
                              chapter.who_wants_what(ground_));
            }
            chapter.walk(ground_);
            const bool last = i + 1 == chapters.size();
            if (!last && IsSomebodyThere() && !GoesOn(chapters[i + 1])) return page_.End(true);
        }
        page_.End(false);
        if (fresh_) {
            page_.Commands("Five commands to try, on a sample of your own:", CommandsOnOwnSample());
        } else {
            page_.Commands("Five commands to try on this database:",
                           CommandsOn(ground_.session, connection_text_, ground_.client));
        }
    }

  private:
    static bool GoesOn(const Chapter& next) {
        fmt::print("\n");
        return WaitForEnter(fmt::format("-- Enter: on to {}, q: end --", next.name));
    }

    void Connect() {
        const Login login{connection_text_, options_.user, options_.password};
        page_.Step("Connect", fresh_ ? "The tour makes a database of its own in memory. The tables come from schema.sql and process.sql, "
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
        MakeTables(ground_.session, page_);
        ground_.client = options_.client ? *options_.client : ActiveClient(ground_.session);
    }

    const GeneralOptions& options_;
    const bool fresh_;
    const Text connection_text_;
    TourPage& page_;
    TourGround ground_;
};

std::span<const Chapter> ChaptersNamed(const std::optional<std::string>& name) {
    if (!name) return Chapters();
    std::vector<std::string> names;
    for (const auto& chapter : Chapters()) {
        if (*name == chapter.name) return {&chapter, 1};
        names.emplace_back(chapter.name);
    }
    const auto meant = DidYouMean(*name, names);
    throw UsageError(fmt::format("There is no chapter {}.{}", OneLine(*name),
                                 meant.empty() ? fmt::format(" There are {}.", fmt::join(names, ", ")) : meant));
}

// On the way here all that a chapter had added was taken back.
int ReportInterruption() {
    fmt::print("\n");
    std::fflush(stdout);
    fmt::print(stderr, "lumoseminar: The tour was interrupted. What it had added is removed again.\n");
    return 128 + StopSignals::Came();
}

int WalkTour(const Context& context, const std::optional<std::string>& chapter) {
    if (context.options.format != Format::kTable)
        throw UsageError("The tour is a text to read: it has no other format.");
    const auto chapters = ChaptersNamed(chapter);
    TourPage page;
    try {
        const StopSignals interruption;
        Tour(context, page).Walk(chapters);
    } catch (const TourInterrupted&) {
        return ReportInterruption();
    } catch (const std::system_error& error) {
        if (error.code() != std::errc::broken_pipe) throw;
        // As without the tour's precautions: a reader that has seen enough, as head(1), is nothing to tell of.
        std::raise(SIGPIPE);
        return kRefused;
    }
    return page.Untold() == 0 ? kDone : kRefused;
}

}  // namespace

void AddTour(Command& program) {
    auto& command = program.Add("tour", "Walk through what there is: calls, statements, outcomes");
    const auto chapter = std::make_shared<std::optional<std::string>>();
    command.Argument("CHAPTER", chapter.get(), "One chapter alone [all of them]");
    std::string remark = "The chapters:\n\n";
    for (const auto& one : Chapters()) remark += fmt::format("  {:<12}{}\n", one.name, one.summary);
    command.Remark(remark +
                   "\nOn a terminal the tour stops behind each chapter: Enter goes on, q ends.\n\n"
                   "Without --connect the tour makes a database of its own in memory, so that it runs anywhere. On a given "
                   "database it uses the tables that are there, or creates them with the sample; what it adds it removes again, "
                   "also where it is interrupted. Each outcome is checked: one that is not as told gives the exit code 1.");
    command.Does([chapter](Context& context) { return WalkTour(context, *chapter); });
}

}  // namespace frontend
