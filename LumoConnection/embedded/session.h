#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include <LumoSeminar/frame/data_session.h>

namespace LumoConnection {

using namespace LumoSeminar;

/// Where in a text something was refused. Line and column count from 1, the column in characters.
struct ErrorPlace {
    std::size_t offset = 0;
    std::size_t line = 1;
    std::size_t column = 1;
};

struct ColumnInfo {
    Text name;
    /// "int", "nvarchar(20)", ...
    Text type;
    bool nullable = true;
    bool in_primary_key = false;
};
struct TableInfo {
    Text name;
    std::vector<ColumnInfo> columns;
};

/// A session on an embedded database: a file, or in memory. For one thread at a time.
///
/// A text is one batch: an error in its grammar anywhere, and nothing of it runs. Each statement stands alone, outside
/// a transaction; a refused one makes the call fail even where statements behind it ran.
class EmbeddedSession final : public DataSession {
  public:
    EmbeddedSession();
    ~EmbeddedSession() override;

    /// "Provider=Embedded;Data Source=FILE" or ":memory:", also "Sync=Normal" for writes that survive the end of the
    /// process but not of power. The file is created where there is none. With "Mode=ReadOnly" it is not: a missing or
    /// empty file is refused, and so is each change, with the number 3906. The user is what SYSTEM_USER gives; empty:
    /// that of the operating system. The password is not looked at: whoever may open the file may use it.
    /// @param timeout seconds that a write waits for other sessions; 0 or less: 30
    [[nodiscard]] Bool Connect(const Text& connection_text, const Text& user, const Text& password, Int32 timeout) override;

    Ref<Connection> AdoConnection() override;
    Ref<RecordSet> Recordset() override;
    /// Gives the rows of the first statement that yields any; a row set without columns where none does.
    [[nodiscard]] Bool OpenSelect(const Text& sql) override;
    [[nodiscard]] Bool ExecuteSql(const Text& sql) override;
    Variant LookupValue(const Text& expression, const Text& table, const Text& where) override;
    Text LastErrorText() override;

    /// The server's number of the last refusal, 0 where the last call went well.
    Int32 LastErrorNumber() const;
    /// Where in the text of the last call it was refused, if that is known.
    std::optional<ErrorPlace> LastErrorPlace() const;

    /// Rows that the last call changed (its last INSERT, UPDATE or DELETE) or selected; -1 where there are none.
    Int32 RowsAffected() const;

    /// The server's names of the column types of the last OpenSelect: "int", "nvarchar(20)", ...
    std::vector<Text> ColumnTypes() const;

    /// Rows of the last text, however it was run, even where a later statement of it was refused.
    Ref<RecordSet> RowsBeforeRefusal() const;

    /// From here on, or no longer, a text is asked for all its row sets, which costs the memory for them.
    void KeepFurtherRows(bool keep);
    /// The row sets of the last text behind its first one, in their order, even where a later statement of it was
    /// refused. Empty where they are not kept.
    const std::vector<Ref<RecordSet>>& FurtherRows() const;

    /// Closes the file; an open transaction is taken back. Row sets stay readable. May be opened again.
    void Close();
    bool IsOpen() const;

    /// The tables of the open database in the order of their names; none where the session is closed.
    std::vector<TableInfo> Tables() const;
    /// How often a statement found its plan ready.
    std::uint64_t PlanHits() const;
    std::size_t PlanCount() const;

  private:
    class State;
    class AdoFace;

    Ref<State> state_;
};

/// A session that is not connected yet.
Ref<DataSession> MakeEmbeddedSession();

}  // namespace LumoConnection
