#include <LumoConnection/odbc/odbc_session.h>

#include <memory>
#include <new>
#include <utility>

#include <LumoConnection/error_numbers.h>
#include <LumoConnection/lookup_text.h>
#include <LumoConnection/odbc/diagnostics.h>
#include <LumoConnection/odbc/driver_text.h>
#include <LumoConnection/odbc/link.h>
#include <LumoConnection/system_user.h>
#include <LumoConnection/utf8.h>

namespace LumoConnection {

using Odbc::Link;
using Odbc::TextOutcome;

namespace {

constexpr Int32 kDefaultTimeout = 30;

}  // namespace

// What the session and its connection face share.
class OdbcSession::State : public Object {
  public:
    std::unique_ptr<Link> link;
    Text connection_text;
    Text user;
    Text password;
    Int32 timeout = kDefaultTimeout;

    Ref<RecordSet> rows;
    /// Of the last call.
    Odbc::Diagnostics diagnostics;
    /// Of the last refusal before that one.
    Odbc::Diagnostics earlier_refusal;
    Int32 affected = -1;
    bool keeps_further_rows = false;
    std::vector<Ref<RecordSet>> further_rows;

    void Clear() {
        further_rows.clear();
        if (diagnostics.Failed()) earlier_refusal = std::move(diagnostics);
        diagnostics.Clear();
    }

    Text ErrorText() const { return diagnostics.Failed() ? diagnostics.AllText() : earlier_refusal.AllText(); }

    bool IsOpen() {
        if (link && !link->IsAlive()) link.reset();
        return link != nullptr;
    }

    // Like Execute(), but forgets no rows.
    bool Try(const Text& sql, TextOutcome& outcome) {
        Clear();
        affected = -1;
        try {
            if (!CanBeSent(sql)) return false;
            outcome.keeps_further_rows = keeps_further_rows;
            link->Run(sql, outcome, diagnostics);
            further_rows = std::move(outcome.further_rows);
            affected = outcome.affected;
            if (!outcome.rows) outcome.rows = New<StoredRows>(StoredRows::Names());
        } catch (const std::bad_alloc&) {
            diagnostics.FailOutOfMemory();
        } catch (const Error& error) {
            diagnostics.Fail(error.Number(), error.Description());
        }
        if (diagnostics.Failed() && link && (diagnostics.Lost() || !link->IsAlive())) link.reset();
        return !diagnostics.Failed();
    }

    bool Open(const Text& text, const Text& user_name, const Text& user_password, Int32 seconds) {
        Close();
        Clear();
        try {
            connection_text = text;
            user = user_name;
            password = user_password;
            timeout = seconds;
            OpenLink();
        } catch (const std::bad_alloc&) {
            diagnostics.FailOutOfMemory();
        } catch (const Error& error) {
            diagnostics.Fail(error.Number(), error.Description());
        }
        if (diagnostics.Failed()) link.reset();
        return link != nullptr;
    }

    void Close() {
        link.reset();
        rows.Reset();
        affected = -1;
    }

  private:
    bool CanBeSent(const Text& sql) {
        if (!link) {
            diagnostics.Fail(Refused::kNotOpen,
                             connection_text.empty() ? "The session is not connected." : "The connection is closed.");
        } else if (FirstBadByte(sql) != Text::npos) {
            diagnostics.Fail(Refused::kSyntax, "The text is not UTF-8.");
        } else if (sql.find('\0') != Text::npos) {
            diagnostics.Fail(Refused::kSyntax, "The text holds a NUL character.");
        }
        return !diagnostics.Failed();
    }

    void OpenLink() {
        for (const Text* part : {&connection_text, &user, &password}) {
            if (FirstBadByte(*part) != Text::npos || part->find('\0') != Text::npos)
                Raise(Refused::kCannotOpen, "The connection text, user or password is not UTF-8 or holds a NUL character.");
        }
        const Odbc::DriverText made = Odbc::MakeDriverText(connection_text, user, password, SystemUser());
        link = std::make_unique<Link>();
        if (!link->Open(made.text, timeout > 0 ? timeout : kDefaultTimeout, diagnostics)) return;
        if (made.sets_date_format && link->IsMicrosoft()) {
            TextOutcome outcome;
            link->Run("SET DATEFORMAT dmy", outcome, diagnostics);
        }
    }
};

// The open connection as objects see it.
class OdbcSession::AdoFace final : public Connection {
  public:
    explicit AdoFace(Ref<OdbcSession::State> state) : state_(std::move(state)) {}

    Int32 State() override { return state_->IsOpen() ? kOpen : 0; }

    void Open(const Text& connection_text, const Text& user, const Text& password, Int32 /*options*/) override {
        // Copies: the state is written while they are read.
        const Text text = connection_text.empty() ? state_->connection_text : connection_text;
        const Text name = user.empty() ? state_->user : user;
        const Text secret = password.empty() && user.empty() ? state_->password : password;
        if (!state_->Open(text, name, secret, state_->timeout)) RaiseRefusal();
    }

    Ref<RecordSet> Execute(const Text& sql, Int32 /*options*/) override {
        TextOutcome outcome;
        if (!state_->Try(sql, outcome)) RaiseRefusal();
        return outcome.rows;
    }

  private:
    [[noreturn]] void RaiseRefusal() const { Raise(state_->diagnostics.Number(), state_->diagnostics.AllText()); }

    Ref<OdbcSession::State> state_;
};

OdbcSession::OdbcSession() : state_(New<State>()) {}
OdbcSession::~OdbcSession() = default;

Bool OdbcSession::Connect(const Text& connection_text, const Text& user, const Text& password, Int32 timeout) {
    return state_->Open(connection_text, user, password, timeout);
}

Ref<Connection> OdbcSession::AdoConnection() { return New<AdoFace>(state_); }

Ref<RecordSet> OdbcSession::Recordset() { return state_->rows; }

Bool OdbcSession::OpenSelect(const Text& sql) {
    state_->rows.Reset();
    TextOutcome outcome;
    if (!state_->Try(sql, outcome)) return false;
    state_->rows = outcome.rows;
    return true;
}

Bool OdbcSession::ExecuteSql(const Text& sql) {
    TextOutcome outcome;
    return state_->Try(sql, outcome);
}

Variant OdbcSession::LookupValue(const Text& expression, const Text& table, const Text& where) {
    try {
        TextOutcome outcome;
        if (!state_->Try(LookupText(expression, table, where), outcome) || outcome.rows->Eof()) return Variant::Null();
        RecordSet& rows = *outcome.rows;
        return rows.Fields().Item(Int16{0}).Value();
    } catch (const std::bad_alloc&) {
        state_->diagnostics.FailOutOfMemory();
        return Variant::Null();
    }
}

Text OdbcSession::LastErrorText() { return state_->ErrorText(); }
Int32 OdbcSession::LastErrorNumber() const { return state_->diagnostics.Number(); }
const std::vector<OdbcDiagnostic>& OdbcSession::Diagnostics() const { return state_->diagnostics.Records(); }
Int32 OdbcSession::RowsAffected() const { return state_->affected; }
void OdbcSession::KeepFurtherRows(bool keep) { state_->keeps_further_rows = keep; }
const std::vector<Ref<RecordSet>>& OdbcSession::FurtherRows() const { return state_->further_rows; }
void OdbcSession::Close() { state_->Close(); }
bool OdbcSession::IsOpen() const { return state_->IsOpen(); }

Ref<DataSession> MakeOdbcSession() { return New<OdbcSession>(); }

}  // namespace LumoConnection
