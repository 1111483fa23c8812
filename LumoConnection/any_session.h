#pragma once

#include <string_view>
#include <vector>

#include <LumoConnection/embedded/session.h>

/// Which session a connection text asks for: "Provider=Embedded;..." the embedded database, everything else an ODBC
/// driver.
namespace LumoConnection {

/// Whether this build has the session on ODBC.
bool OdbcAvailable();

/// A session of the kind that the text asks for, not connected yet. Raises 429 for an ODBC text in a build without
/// ODBC, and for a Provider that is not known, which the description names.
Ref<DataSession> MakeSessionFor(std::string_view connection_text);

/// A session that becomes the one its connection text asks for when Connect is called, each time anew. A connection
/// face and row sets that were had before stay with the session of before. Until then it is like an embedded session
/// that is not connected.
class AnySession final : public DataSession {
  public:
    /// As that of the session which the text asks for; false, with a LastErrorText, where this build has none for it.
    [[nodiscard]] Bool Connect(const Text& connection_text, const Text& user, const Text& password, Int32 timeout) override;

    Ref<Connection> AdoConnection() override;
    Ref<RecordSet> Recordset() override;
    [[nodiscard]] Bool OpenSelect(const Text& sql) override;
    [[nodiscard]] Bool ExecuteSql(const Text& sql) override;
    Variant LookupValue(const Text& expression, const Text& table, const Text& where) override;
    Text LastErrorText() override;

    /// The server's number of the last refusal, 0 where the last call went well.
    Int32 LastErrorNumber() const;
    /// Rows that the last call changed or selected; -1 where there are none.
    Int32 RowsAffected() const;
    /// From here on, or no longer, a text is asked for all its row sets, which costs the memory for them.
    void KeepFurtherRows(bool keep);
    /// The row sets of the last text behind its first one, in their order. Empty where they are not kept.
    const std::vector<Ref<RecordSet>>& FurtherRows() const;

    /// The session behind; empty where it is on another database.
    Ref<EmbeddedSession> Embedded() const { return session_.As<EmbeddedSession>(); }

  private:
    Ref<DataSession> session_ = MakeEmbeddedSession();
    /// Of the sessions before, or of a choice that could not be made.
    Text earlier_refusal_;
    bool choice_refused_ = false;
    bool keeps_further_rows_ = false;
};

/// A session that chooses when it is connected.
Ref<DataSession> MakeAnySession();

}  // namespace LumoConnection
