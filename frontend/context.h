#pragma once

#include <cstddef>
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
    GeneralOptions options;

    /// What --connect says, otherwise LUMOSEMINAR_CONNECT, otherwise a file in the working folder.
    LumoSeminar::Text ConnectionText() const;

    /// The session of the program, opened at the first call. Raises where it cannot be opened; see OpenSession.
    const LumoSeminar::Ref<LumoSeminar::DataSession>& Session(MissingFile missing_file = MissingFile::kRefuse);

    /// Where in the text of the last call the database refused it, if it tells.
    std::optional<std::size_t> RefusedAt() const;

    /// Rows that the last call changed, if the database tells.
    std::optional<LumoSeminar::Int32> RowsChanged() const;

    /// The rows of the last call that was refused further on in its text. Empty where there are none.
    LumoSeminar::Ref<LumoSeminar::RecordSet> RowsBeforeRefusal() const;

    /// The tables of the database, by name.
    /// @see ServerTables
    std::vector<LumoConnection::TableInfo> Tables();

    /// What --client says, otherwise the active client of the database, otherwise 1.
    LumoSeminar::Int32 Client();

    /// Prints data on standard output in the format that was asked for.
    void Print(const Sheet& sheet, Shape shape = Shape::kRows) const;

    /// A remark for people, on standard error; left out in the formats for programs.
    void Note(std::string_view text) const;

  private:
    OpenedSession opened_;
};

/// The active client of the database, otherwise 1.
LumoSeminar::Int32 ActiveClient(const LumoSeminar::Ref<LumoSeminar::DataSession>& session);

/// Prints a failure on standard error, labels and all.
void Report(const LumoSeminar::Error& error);

}  // namespace frontend
