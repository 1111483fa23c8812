#include "frontend/tour/commands_to_try.h"

#include <fmt/format.h>

#include "frontend/context.h"
#include "frontend/output/screen_text.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

std::string InShellQuotes(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

// A password is not for the screen.
std::string HowToFind(const Text& connection_text) {
    const auto folded = FoldCase(connection_text);
    if (folded.find("pwd") != std::string::npos || folded.find("password") != std::string::npos)
        return "export LUMOSEMINAR_CONNECT=...   # what --connect said";
    return "export LUMOSEMINAR_CONNECT=" + InShellQuotes(connection_text);
}

}  // namespace

std::vector<std::string> CommandsOnOwnSample() {
    return {
        "lumoseminar init --sample",
        "lumoseminar dates list --by month",
        "lumoseminar persons show 101 --history",
        "lumoseminar consent 62 101 --user-id 12",
        "lumoseminar approve 62 101 --user-id 11",
    };
}

std::vector<std::string> CommandsOn(const Ref<DataSession>& session, const Text& connection_text, Int32 client) {
    std::vector<std::string> lines;
    if (connection_text != Context().ConnectionText()) lines.push_back(HowToFind(connection_text));
    const auto of_client = client == ActiveClient(session) ? "" : fmt::format(" --client {}", client);
    const auto employee = session->LookupValue("min(ANNR)", "Arbeitnehmer", fmt::format("MDNR = {}", client));
    lines.push_back("lumoseminar seminars list" + of_client);
    lines.push_back("lumoseminar dates list --by month" + of_client);
    lines.push_back(employee.IsNull()
                        ? "lumoseminar budget list"
                        : fmt::format("lumoseminar persons show {} --history{}", To<Int32>(employee), of_client));
    lines.emplace_back("lumoseminar tables Sem_Termin_IT");
    lines.emplace_back("lumoseminar sql \"select count(*) as Participants from Sem_Teilnehmer_IT\"");
    return lines;
}

}  // namespace frontend
