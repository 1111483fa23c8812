#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/types.h>

/// A session that stands in front of another one and tells about each statement.
namespace LumoConnection {

using namespace LumoSeminar;

enum class TracedKind { kConnect, kOpenSelect, kExecuteSql, kLookupValue, kConnectionOpen, kConnectionExecute };

/// "OpenSelect", "ConnectionExecute", ...
std::string_view NameOf(TracedKind kind);

/// One call that went to the database.
struct TracedCall {
    static constexpr int kNoRows = -1;

    TracedKind kind = TracedKind::kConnect;
    /// The statement as it was sent. Of a lookup "EXPRESSION from TABLE where WHERE", without "where" if there is none.
    /// Of Connect and ConnectionOpen the connection text, with *** in place of passwords.
    Text statement;
    /// False where the call was refused or raised. A refused lookup cannot be told from a Null and counts as ok.
    bool ok = false;
    /// Rows that the statement gave; kNoRows where it gives none, or where the row set cannot tell.
    int rows = kNoRows;
    double seconds = 0;
    /// The LastErrorText of a refused call, the description of an error; otherwise empty.
    Text error;
};

/// Called behind each call, when its result stands. What it raises takes the place of that result.
using TraceCallback = std::function<void(const TracedCall&)>;

/// Puts each call into a list, as "OpenSelect: SELECT ...".
TraceCallback RecordInto(std::shared_ptr<std::vector<std::string>> calls);

/// Hands every call on unchanged, connection and row sets included. After an OpenSelect it asks the other session for
/// its Recordset, to count the rows, and after a refused call for its LastErrorText.
class TracingSession final : public DataSession {
  public:
    TracingSession(Ref<DataSession> session, TraceCallback callback);

    [[nodiscard]] Bool Connect(const Text& connection_text, const Text& user, const Text& password, Int32 timeout) override;
    /// Its calls are told about, too.
    Ref<Connection> AdoConnection() override;
    Ref<RecordSet> Recordset() override;
    [[nodiscard]] Bool OpenSelect(const Text& sql) override;
    [[nodiscard]] Bool ExecuteSql(const Text& sql) override;
    Variant LookupValue(const Text& expression, const Text& table, const Text& where) override;
    Text LastErrorText() override;

  private:
    Ref<DataSession> session_;
    std::shared_ptr<const TraceCallback> callback_;
};

}  // namespace LumoConnection
