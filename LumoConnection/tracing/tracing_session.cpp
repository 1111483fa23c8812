#include <LumoConnection/tracing/tracing_session.h>

#include <algorithm>
#include <chrono>
#include <utility>

#include <LumoConnection/ascii.h>
#include <LumoConnection/connection_text.h>
#include <LumoConnection/stored_rows.h>

namespace LumoConnection {
namespace {

constexpr std::string_view kHidden = "***";

std::string_view Trimmed(std::string_view text) {
    const std::size_t from = text.find_first_not_of(" \t\r\n");
    return from == text.npos ? std::string_view{} : text.substr(from, text.find_last_not_of(" \t\r\n") - from + 1);
}

bool IsPasswordKey(std::string_view key) { return SameWithoutCase(key, "pwd") || SameWithoutCase(key, "password"); }

Text WithoutPasswords(std::string_view text) {
    Text shown;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t equals = std::min(text.find_first_of("=;", at), text.size());
        if (equals == text.size() || text[equals] == ';') {
            const std::size_t to = std::min(equals + 1, text.size());
            shown.append(text.substr(at, to - at));
            at = to;
            continue;
        }
        const std::size_t end = ValueEnd(text, equals + 1);
        const bool hidden = IsPasswordKey(Trimmed(text.substr(at, equals - at)));
        shown.append(text.substr(at, equals + 1 - at));
        shown.append(hidden ? kHidden : text.substr(equals + 1, end - equals - 1));
        if (end < text.size()) shown += ';';
        at = std::min(end + 1, text.size());
    }
    return shown;
}

int RowCount(const Ref<RecordSet>& rows) {
    const Ref<StoredRows> stored = rows.As<StoredRows>();
    if (!stored || stored->Fields().Count() == 0) return TracedCall::kNoRows;
    return To<int>(stored->RowCount());
}

// What a session raises while it is asked for more than the program asked for is no concern of the program.
int SelectedRowCount(const Ref<DataSession>& session) try { return RowCount(session->Recordset()); } catch (...) {
    return TracedCall::kNoRows;
}

Text RefusalText(const Ref<DataSession>& session) try { return session->LastErrorText(); } catch (...) {
    return {};
}

// Runs a call and tells about it. `read` completes what is told about a result; the call counts as ok before.
template <class Call, class Read>
auto Traced(const TraceCallback& callback, TracedKind kind, Text statement, Call&& call, Read&& read) -> decltype(call()) {
    TracedCall told;
    told.kind = kind;
    told.statement = std::move(statement);
    const auto start = std::chrono::steady_clock::now();
    const auto stop = [&] {
        told.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    const auto tell_failure = [&](const char* description) {
        stop();
        told.error = description;
        callback(told);
    };
    decltype(call()) result = [&] {
        try {
            return call();
        } catch (const std::exception& error) {
            tell_failure(error.what());
            throw;
        } catch (...) {
            tell_failure("An exception of an unknown type was thrown.");
            throw;
        }
    }();
    stop();
    told.ok = true;
    read(result, told);
    callback(told);
    return result;
}

void ReadOk(Bool ok, TracedCall& told, const Ref<DataSession>& session) {
    told.ok = static_cast<bool>(ok);
    if (!ok) told.error = RefusalText(session);
}

using SharedCallback = std::shared_ptr<const TraceCallback>;

class TracingConnection final : public Connection {
  public:
    TracingConnection(Ref<Connection> connection, SharedCallback callback)
        : connection_(std::move(connection)), callback_(std::move(callback)) {}

    Int32 State() override { return connection_->State(); }

    void Open(const Text& connection_text, const Text& user, const Text& password, Int32 options) override {
        const auto open = [&] {
            connection_->Open(connection_text, user, password, options);
            return true;
        };
        Traced(*callback_, TracedKind::kConnectionOpen, WithoutPasswords(connection_text), open, [](bool, TracedCall&) {});
    }

    Ref<RecordSet> Execute(const Text& sql, Int32 options) override {
        return Traced(
            *callback_, TracedKind::kConnectionExecute, sql, [&] { return connection_->Execute(sql, options); },
            [](const Ref<RecordSet>& rows, TracedCall& told) { told.rows = RowCount(rows); });
    }

  private:
    Ref<Connection> connection_;
    SharedCallback callback_;
};

Text LookupText(const Text& expression, const Text& table, const Text& where) {
    Text text = expression;
    text.append(" from ").append(table);
    if (!where.empty()) text.append(" where ").append(where);
    return text;
}

}  // namespace

std::string_view NameOf(TracedKind kind) {
    switch (kind) {
        case TracedKind::kConnect:
            return "Connect";
        case TracedKind::kOpenSelect:
            return "OpenSelect";
        case TracedKind::kExecuteSql:
            return "ExecuteSql";
        case TracedKind::kLookupValue:
            return "LookupValue";
        case TracedKind::kConnectionOpen:
            return "ConnectionOpen";
        case TracedKind::kConnectionExecute:
            return "ConnectionExecute";
    }
    return {};
}

TraceCallback RecordInto(std::shared_ptr<std::vector<std::string>> calls) {
    return [calls = std::move(calls)](const TracedCall& call) {
        calls->push_back(std::string(NameOf(call.kind)) + ": " + call.statement);
    };
}

TracingSession::TracingSession(Ref<DataSession> session, TraceCallback callback)
    : session_(std::move(session)), callback_(std::make_shared<const TraceCallback>(std::move(callback))) {}

Bool TracingSession::Connect(const Text& connection_text, const Text& user, const Text& password, Int32 timeout) {
    return Traced(
        *callback_, TracedKind::kConnect, WithoutPasswords(connection_text),
        [&] { return session_->Connect(connection_text, user, password, timeout); },
        [&](Bool ok, TracedCall& told) { ReadOk(ok, told, session_); });
}

Ref<Connection> TracingSession::AdoConnection() {
    Ref<Connection> connection = session_->AdoConnection();
    if (!connection) return {};
    return New<TracingConnection>(std::move(connection), callback_);
}

Ref<RecordSet> TracingSession::Recordset() { return session_->Recordset(); }

Bool TracingSession::OpenSelect(const Text& sql) {
    return Traced(
        *callback_, TracedKind::kOpenSelect, sql, [&] { return session_->OpenSelect(sql); },
        [&](Bool ok, TracedCall& told) {
            ReadOk(ok, told, session_);
            if (ok) told.rows = SelectedRowCount(session_);
        });
}

Bool TracingSession::ExecuteSql(const Text& sql) {
    return Traced(
        *callback_, TracedKind::kExecuteSql, sql, [&] { return session_->ExecuteSql(sql); },
        [&](Bool ok, TracedCall& told) { ReadOk(ok, told, session_); });
}

Variant TracingSession::LookupValue(const Text& expression, const Text& table, const Text& where) {
    return Traced(
        *callback_, TracedKind::kLookupValue, LookupText(expression, table, where),
        [&] { return session_->LookupValue(expression, table, where); }, [](const Variant&, TracedCall&) {});
}

Text TracingSession::LastErrorText() { return session_->LastErrorText(); }

}  // namespace LumoConnection
