#include "frontend/name_source.h"

#include <fmt/format.h>

#include <string_view>

#include "frontend/output/screen_text.h"
#include "frontend/output/value_text.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

// The first column is the key, the others say what it stands for. {0} is the number of the client.
constexpr std::string_view StatementFor(Names what) {
    switch (what) {
        case Names::kSeminar:
            return "SELECT SemID, SemTitel FROM Sem_Katalog_IT WHERE MDNr = {0} OR MDNr = -1 ORDER BY SemID";
        case Names::kDate:
            return "SELECT SemTerminID, Titel, BeginnDatum FROM Sem_Termin_IT WHERE MDNr = {0} OR MDNr = -1 "
                   "ORDER BY SemTerminID";
        case Names::kPerson:
            return "SELECT ANNR, Name, Vorname FROM arbeitnehmer WHERE MDNR = {0} ORDER BY ANNR";
        case Names::kParticipant:
            return "SELECT t.TeilnehmerID, a.Name, a.Vorname, d.Titel FROM Sem_Teilnehmer_IT t "
                   "INNER JOIN Sem_Termin_IT d ON d.SemTerminID = t.SemTerminID "
                   "LEFT JOIN arbeitnehmer a ON a.MDNR = t.MDNr AND a.ANNR = t.ANNr "
                   "WHERE d.MDNr = {0} OR d.MDNr = -1 ORDER BY t.TeilnehmerID";
        case Names::kNeed:
            return "SELECT b.WBID, a.Name, a.Vorname, w.Weiterbildungsschwerpunkt FROM AN_WBBedarf_IT b "
                   "LEFT JOIN arbeitnehmer a ON a.MDNR = b.MDNr AND a.ANNR = b.ANNr "
                   "LEFT JOIN sysIData_WBS w ON w.WBS_ID = b.WBS WHERE b.MDNr = {0} ORDER BY b.WBID";
        case Names::kSeries:
            return "SELECT SerienID FROM Sem_Serien_IT ORDER BY SerienID";
        case Names::kFocusArea:
            return "SELECT WBS_ID, Weiterbildungsschwerpunkt FROM sysIData_WBS ORDER BY WBS_ID";
        case Names::kUser:
            return "SELECT DISTINCT UserID FROM Sem_ProzessRecht_IT ORDER BY UserID";
        default:
            return {};
    }
}

Text Shown(const Variant& value) { return value.Is<DateTime>() ? ScreenText(To<DateTime>(value)) : To<Text>(value); }

std::vector<Candidate> Select(Context& context, std::string_view statement) {
    const auto& session = context.Session();
    const auto client = statement.find("{0}") == std::string_view::npos ? 0 : context.Client();
    if (!session->OpenSelect(fmt::format(fmt::runtime(statement), client))) return {};
    std::vector<Candidate> found;
    for (const auto rows = session->Recordset(); !rows->Eof(); rows->MoveNext()) {
        const auto fields = rows->Fields();
        Candidate one{Visible(Shown(fields.Item(Int16{0}).Value())), {}};
        for (Int16 i = 1; i < fields.Count(); ++i) {
            const auto value = fields.Item(i).Value();
            if (!value.IsNull()) one.what += (one.what.empty() ? "" : ", ") + Visible(Shown(value));
        }
        found.push_back(std::move(one));
    }
    return found;
}

std::vector<Candidate> TableNames(Context& context) {
    std::vector<Candidate> names;
    for (const auto& table : context.Tables()) names.push_back({table.name, {}});
    return names;
}

// What a command of this name keeps its objects in.
std::string_view TableOf(std::string_view command) {
    if (command == "seminars") return "Sem_Katalog_IT";
    if (command == "dates") return "Sem_Termin_IT";
    if (command == "participants") return "Sem_Teilnehmer_IT";
    if (command == "needs") return "AN_WBBedarf_IT";
    if (command == "series") return "Sem_Serien_IT";
    return {};
}

std::vector<Candidate> ColumnNames(Context& context, const CommandPath& path) {
    std::vector<Candidate> names;
    const auto wanted = path.size() < 2 ? std::string_view{} : TableOf(path[1]->Name());
    for (const auto& table : context.Tables()) {
        if (FoldCase(table.name) != FoldCase(wanted)) continue;
        for (const auto& column : table.columns) names.push_back({column.name + '=', column.type});
    }
    return names;
}

}  // namespace

std::vector<Candidate> NamesIn(Context& context, Names what, const CommandPath& path) {
    try {
        if (what == Names::kTable) return TableNames(context);
        if (what == Names::kColumn) return ColumnNames(context, path);
        const auto statement = StatementFor(what);
        return statement.empty() ? std::vector<Candidate>{} : Select(context, statement);
    } catch (const std::exception&) {
        return {};
    }
}

}  // namespace frontend
