#include <LumoConnection/process/process_session.h>

#include <LumoConnection/connection_text.h>

namespace LumoConnection {
namespace {

constexpr Int32 kTimeoutSeconds = 30;

bool IsInMemory(const Text& connection_text) {
    return AsksForEmbedded(connection_text) && ReadEmbeddedTarget(connection_text).file == ":memory:";
}

}  // namespace

void ProcessSession::ConnectTo(const Text& connection_text) {
    login_.connection_text = connection_text;
    own_.Reset();
}

void ProcessSession::LogIn(const Text& user, const Text& password) {
    login_.user = user;
    login_.password = password;
    own_.Reset();
}

Ref<DataSession> ProcessSession::Get() {
    if (login_.session) return login_.session;
    if (own_) return own_;
    if (login_.connection_text.empty()) {
        Raise(ErrorNumber::kComponentNotCreated,
              "The process objects have no database: no session, no connection text and no ConnectionString was given.");
    }
    if (IsInMemory(login_.connection_text)) {
        Raise(ErrorNumber::kComponentNotCreated,
              "The process objects cannot reach a database in memory by its connection text: give them the session.");
    }
    const Ref<DataSession> session = MakeDataSession();
    if (!session->Connect(login_.connection_text, login_.user, login_.password, kTimeoutSeconds)) {
        RaiseRefused(session->LastErrorText());
    }
    own_ = session;
    return own_;
}

}  // namespace LumoConnection
