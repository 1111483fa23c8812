#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/variant.h>

/// Rows as tests write and read them.
namespace LumoConnection {

using namespace LumoSeminar;

using ValueRow = std::vector<Variant>;
using ValueRows = std::vector<ValueRow>;

/// Rows to be given by a script, each naming only the columns that matter to it.
///
///     const RowTable seminars = RowTable({"MDNr", "SemCode", "SemTitel", "Status"})
///                                   .With({{"SemTitel", "Zeichnungen lesen"}, {"Status", 1}})
///                                   .Row({1, "FT-101", "Messen", 2});
///     script.OpenSelect(sql).RowsOf(seminars);
class RowTable {
  public:
    explicit RowTable(std::vector<std::string> columns) : columns_(std::move(columns)) {}

    /// One more row, all of it. Raises ScriptError::kBadScript for another number of values than of columns.
    RowTable& Row(ValueRow values);
    /// One more row of these values, Null in all other columns. Columns are found without regard to capitals; raises
    /// ScriptError::kBadScript for one that is not there.
    RowTable& With(const std::vector<std::pair<std::string_view, Variant>>& values);
    /// One more row, Null in all columns.
    RowTable& Nulls() { return With({}); }

    const std::vector<std::string>& Columns() const { return columns_; }
    const ValueRows& Rows() const { return rows_; }

  private:
    std::vector<std::string> columns_;
    ValueRows rows_;
};

/// All rows from the current one on, to the end.
ValueRows ReadRows(RecordSet& rows);

/// What a select gives; the row set is closed. Raises 9999 where it is refused.
ValueRows SelectRows(DataSession& session, const Text& sql);

/// The first column of the first row; Empty where there is no row. Raises 9999 where it is refused.
Variant SelectValue(DataSession& session, const Text& sql);

/// Runs a text that yields no rows. Raises 9999 where it is refused.
void ExecuteOrRaise(DataSession& session, const Text& sql);

}  // namespace LumoConnection
