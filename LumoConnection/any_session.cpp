#include <LumoConnection/any_session.h>

#include <LumoConnection/connection_text.h>
#ifdef LUMOSEMINAR_WITH_ODBC
#include <LumoConnection/odbc/odbc_session.h>
#endif

namespace LumoConnection {

bool OdbcAvailable() {
#ifdef LUMOSEMINAR_WITH_ODBC
    return true;
#else
    return false;
#endif
}

Ref<DataSession> MakeSessionFor(std::string_view connection_text) {
    if (AsksForEmbedded(connection_text)) return MakeEmbeddedSession();
    if (const Text provider = UnknownProvider(connection_text); !provider.empty()) {
        Raise(ErrorNumber::kComponentNotCreated,
              "There is no component for the provider " + OneLine(provider) +
                  " of this connection text. Known are Provider=Embedded, and Driver=... or DSN=... for a server behind ODBC.");
    }
#ifdef LUMOSEMINAR_WITH_ODBC
    return MakeOdbcSession();
#else
    Raise(ErrorNumber::kComponentNotCreated,
          "There is no component for this connection text: it does not say Provider=Embedded, and this build has no ODBC.");
#endif
}

Bool AnySession::Connect(const Text& connection_text, const Text& user, const Text& password, Int32 timeout) {
    earlier_refusal_ = LastErrorText();
    choice_refused_ = false;
    try {
        session_ = MakeSessionFor(connection_text);
    } catch (const Error& error) {
        session_ = MakeEmbeddedSession();
        earlier_refusal_ = error.Description();
        choice_refused_ = true;
        return false;
    }
    KeepFurtherRows(keeps_further_rows_);
    return session_->Connect(connection_text, user, password, timeout);
}

Ref<Connection> AnySession::AdoConnection() { return session_->AdoConnection(); }
Ref<RecordSet> AnySession::Recordset() { return session_->Recordset(); }
Bool AnySession::OpenSelect(const Text& sql) { return session_->OpenSelect(sql); }
Bool AnySession::ExecuteSql(const Text& sql) { return session_->ExecuteSql(sql); }
Variant AnySession::LookupValue(const Text& expression, const Text& table, const Text& where) {
    return session_->LookupValue(expression, table, where);
}
Text AnySession::LastErrorText() {
    const Text text = session_->LastErrorText();
    return text.empty() ? earlier_refusal_ : text;
}

Int32 AnySession::LastErrorNumber() const {
    if (choice_refused_) return ErrorNumber::kComponentNotCreated;
#ifdef LUMOSEMINAR_WITH_ODBC
    if (const auto odbc = session_.As<OdbcSession>()) return odbc->LastErrorNumber();
#endif
    return Embedded()->LastErrorNumber();
}

Int32 AnySession::RowsAffected() const {
#ifdef LUMOSEMINAR_WITH_ODBC
    if (const auto odbc = session_.As<OdbcSession>()) return odbc->RowsAffected();
#endif
    return Embedded()->RowsAffected();
}

void AnySession::KeepFurtherRows(bool keep) {
    keeps_further_rows_ = keep;
#ifdef LUMOSEMINAR_WITH_ODBC
    if (const auto odbc = session_.As<OdbcSession>()) return odbc->KeepFurtherRows(keep);
#endif
    Embedded()->KeepFurtherRows(keep);
}

const std::vector<Ref<RecordSet>>& AnySession::FurtherRows() const {
#ifdef LUMOSEMINAR_WITH_ODBC
    if (const auto odbc = session_.As<OdbcSession>()) return odbc->FurtherRows();
#endif
    return Embedded()->FurtherRows();
}

Ref<DataSession> MakeAnySession() { return New<AnySession>(); }

}  // namespace LumoConnection
