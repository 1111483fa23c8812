#pragma once

#include <LumoConnection/any_session.h>
#include <LumoConnection/tracing/tracing_session.h>
#include <LumoSeminar/LumoSeminar.h>

namespace frontend {

/// Where a session is to be opened.
struct Login {
    LumoSeminar::Text connection_text;
    LumoSeminar::Text user;
    LumoSeminar::Text password;
};

/// Seconds, for the login and for each statement.
inline constexpr LumoSeminar::Int32 kTimeout = 30;

/// A session, and behind it what its kind tells beyond the contract.
struct OpenedSession {
    /// With the watcher in front of it.
    LumoSeminar::Ref<LumoSeminar::DataSession> session;
    LumoSeminar::Ref<LumoConnection::AnySession> plain;
    /// Empty for other databases.
    LumoSeminar::Ref<LumoConnection::EmbeddedSession> embedded;
};

enum class MissingFile { kCreate, kRefuse };

/// Opens a session, with a watcher in front of it where one is given. The process objects work on it, and what is
/// entered from then on is entered by the user of the login, otherwise by that of the operating system. Raises 9999
/// where it cannot be opened, 53 where the file is missing and not to be created.
OpenedSession OpenSession(const Login& login, MissingFile missing_file, LumoConnection::TraceCallback watcher = {});

/// A watcher that puts each call on standard error: kind, time, rows, statement.
LumoConnection::TraceCallback TraceToStandardError();

}  // namespace frontend
