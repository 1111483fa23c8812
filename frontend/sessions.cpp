#include "frontend/sessions.h"

#include <LumoConnection/connection_text.h>
#include <LumoConnection/error_numbers.h>
#include <LumoConnection/install.h>
#include <LumoConnection/text_file.h>

#include <fmt/format.h>

#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "frontend/output/screen_text.h"
#include "frontend/output/terminal.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

std::string RowsText(const LumoConnection::TracedCall& call) {
    if (!call.ok) return "refused";
    if (call.rows == LumoConnection::TracedCall::kNoRows) return "";
    return fmt::format("{} row{}", call.rows, call.rows == 1 ? "" : "s");
}

}  // namespace

OpenedSession OpenSession(const Login& login, MissingFile missing_file, LumoConnection::TraceCallback watcher) {
    if (missing_file == MissingFile::kRefuse && LumoConnection::AsksForEmbedded(login.connection_text)) {
        const Text file = LumoConnection::ReadEmbeddedTarget(login.connection_text).file;
        if (file != ":memory:" && !std::filesystem::exists(file)) {
            Raise(LumoConnection::kFileNotRead, "There is no database file " + OneLine(file) + "; the command init creates it.");
        }
        // Opened, it would become a database without a table.
        std::error_code failed;
        if (file != ":memory:" && std::filesystem::is_regular_file(file, failed) && std::filesystem::is_empty(file, failed)) {
            Raise(LumoConnection::kFileNotRead,
                  "The file " + OneLine(file) + " is empty; the command init makes a database of it.");
        }
    }
    OpenedSession opened;
    opened.plain = New<LumoConnection::AnySession>();
    opened.session = opened.plain;
    if (watcher) opened.session = New<LumoConnection::TracingSession>(opened.session, std::move(watcher));
    LumoConnection::Install({.user = login.user, .password = login.password, .session = opened.session});
    if (!opened.session->Connect(login.connection_text, login.user, login.password, kTimeout)) {
        const Text refusal = opened.session->LastErrorText();
        const bool is_no_database = opened.plain->LastErrorNumber() == LumoConnection::Refused::kCannotOpen;
        RaiseRefused(opened.plain->Embedded() && is_no_database
                         ? refusal + " The command init makes a database in a file of its own, which --db names."
                         : refusal);
    }
    opened.embedded = opened.plain->Embedded();
    return opened;
}

LumoConnection::TraceCallback TraceToStandardError() {
    return [terminal = TerminalOf(stderr)](const LumoConnection::TracedCall& call) {
        const char* dim = terminal.colour ? "\x1b[2m" : "";
        const char* plain = terminal.colour ? "\x1b[0m" : "";
        fmt::print(stderr, "{}trace {:9.3f} ms {:>10}  {:<17}{} {}\n", dim, call.seconds * 1000, RowsText(call),
                   LumoConnection::NameOf(call.kind), plain, call.statement);
        if (!call.error.empty()) fmt::print(stderr, "      {}\n", Visible(ReadDescription(call.error).text));
    };
}

}  // namespace frontend
