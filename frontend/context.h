#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include <LumoSeminar/LumoSeminar.h>

#include "frontend/options.h"
#include "frontend/output/sheet.h"
#include "frontend/sessions.h"

namespace frontend {

/// What a command works with: the general options, the database behind them, and the two streams.
class Context {
  public:
    Context() = default;
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
    ~Context() = default;

    GeneralOptions options;

    /// What --connect or --db says, otherwise LUMOSEMINAR_CONNECT, otherwise a file in the working folder. A text that
    /// names no key is a file.
    LumoSeminar::Text ConnectionText() const;

    /// The session of the program, opened at the first call. Raises where it cannot be opened, and where the database
    /// is known to have no tables of the seminar administration; see OpenSession.
    const LumoSeminar::Ref<LumoSeminar::DataSession>& Session();

    /// The same whatever tables there are.
    const LumoSeminar::Ref<LumoSeminar::DataSession>& AnyDatabase(MissingFile missing_file = MissingFile::kRefuse);

    /// A session of its own on a file of the embedded database, which is made where there is none.
    OpenedSession OpenBeside(const LumoSeminar::Text& file);

    /// Called behind each call that the session makes.
    using Watcher = std::function<void(const LumoConnection::TracedCall&)>;
    void WatchWith(Watcher watcher) { watcher_ = std::move(watcher); }

    /// The session behind those that watch: what it does is told to nobody.
    const LumoSeminar::Ref<LumoConnection::AnySession>& Unwatched() const { return opened_.plain; }

    /// Where in the text of the last call the database refused it, if it tells.
    std::optional<std::size_t> RefusedAt() const;

    /// Rows that the last call changed, if the database tells.
    std::optional<LumoSeminar::Int32> RowsChanged() const;

    /// Runs a text on the connection and gives all its row sets. Raises where it is refused.
    std::vector<LumoSeminar::Ref<LumoSeminar::RecordSet>> RunText(const LumoSeminar::Text& text);

    /// The row sets of the last RunText that was refused further on in its text.
    std::vector<LumoSeminar::Ref<LumoSeminar::RecordSet>> RowSetsBeforeRefusal() const;

    /// The tables of the database, by name.
    /// @see ServerTables
    std::vector<LumoConnection::TableInfo> Tables();

    /// What --client says, otherwise the active client of the database, otherwise 1.
    LumoSeminar::Int32 Client();

    /// Prints data on standard output in the format that was asked for.
    void Print(const Sheet& sheet, Shape shape = Shape::kRows) const;

    /// A row, and rows that belong to it: in JSON they are a member of the object, otherwise they stand below it.
    void Print(const Sheet& row, const Part& part) const;

    /// Prints row sets as one document of JSON.
    void PrintAll(const std::vector<Sheet>& sheets) const;

    /// A text for people on standard output; left out in the formats for programs.
    void Show(std::string_view text) const;

    /// A remark for people, on standard error; left out in the formats for programs.
    void Note(std::string_view text) const;

    /// Nothing is printed, shown or noted until it is taken back.
    void Mute(bool is_muted) { is_muted_ = is_muted; }

    /// Whether what is shown is for people.
    bool IsForPeople() const { return options.format == Format::kTable && !is_muted_; }

    /// Tells a failure on standard error in a sentence. With --verbose or --trace its number, where it came from and
    /// the statement that was refused come behind it.
    void Report(const LumoSeminar::Error& error);

    /// The same, with the number of the database in front.
    void ReportWithNumber(const LumoSeminar::Error& error) const;

    /// Failures from here on have nothing to do with statements of before.
    void ForgetFailure() { refused_ = {}; }

  private:
    void Watch(const LumoConnection::TracedCall& call);
    bool HasTables();
    LumoSeminar::Text NoTablesText() const;
    bool TellsMore() const { return options.verbose || options.trace; }
    void Put(std::string_view text) const;

    OpenedSession opened_;
    Watcher watcher_;
    LumoConnection::TraceCallback trace_;
    /// The last statement that was refused.
    LumoConnection::TracedCall refused_;
    /// Whether a command relies on them, and whether they are known to be there.
    bool needs_tables_ = false;
    bool has_tables_ = false;
    bool is_muted_ = false;
};

/// The active client of the database, otherwise 1.
LumoSeminar::Int32 ActiveClient(const LumoSeminar::Ref<LumoSeminar::DataSession>& session);

}  // namespace frontend
