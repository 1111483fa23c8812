#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include "frontend/commands/commands.h"
#include "frontend/commands/lists.h"
#include "frontend/commands/look_ups.h"
#include "frontend/context.h"
#include "frontend/exit_codes.h"
#include "frontend/output/counted.h"
#include "frontend/read_value.h"
#include "frontend/text_filter.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

// What other programs of the suite keep: it is listed here, so that its keys need not be known by heart.

bool FindsInRow(const TextFilter& filter, const std::vector<Variant>& row) {
    return std::ranges::any_of(row, [&](const Variant& value) {
        const auto* text = value.If<Text>();
        return filter.FindsIn(text != nullptr ? *text : Text());
    });
}

int PrintRows(Context& context, Sheet sheet, const std::string& filter_typed, const char* thing) {
    const TextFilter filter(filter_typed);
    const auto all = sheet.rows.size();
    std::erase_if(sheet.rows, [&](const auto& row) { return !FindsInRow(filter, row); });
    context.Print(sheet);
    context.Note(filter.IsEmpty() ? Counted(all, thing) : fmt::format("{} of {}", sheet.rows.size(), Counted(all, thing)));
    return kDone;
}

void AddFilter(Command& command, std::string& typed) {
    command.Option("--filter", &typed, "TEXT", "Only rows with this text in one of the columns, in any capitals");
}

struct Table {
    const char* name;
    const char* summary;
    const char* list_summary;
    const char* thing;
    const char* columns;
    /// Empty where there are no more.
    const char* all_columns;
    const char* source;
};

constexpr Table kOrganisers{"organisers",
                            "The organisers of dates: list",
                            "List the organisers by name",
                            "organiser",
                            "ID, Name, PLZ, Ort, Telefon, EMail",
                            "ID, Name, PLZ, Ort, Strasse, Anspr_partner, Telefon, Fax, Sachbearbeiter, EMail, URL, Mobiltelefon, "
                            "Bemerkungen",
                            "sysIData_Veranstalter ORDER BY Name, ID"};
constexpr Table kVenues{"venues",
                        "The venues of dates: list",
                        "List the venues by name",
                        "venue",
                        "ID, Name, PLZ, Ort, Strasse, Telefon",
                        "ID, Name, PLZ, Ort, Strasse, Anspr_partner, Telefon, Fax, Sachbearbeiter",
                        "sysIData_VOrte ORDER BY Name, ID"};
constexpr Table kCostTypes{"costtypes",
                           "The types of participants' costs: list",
                           "List the cost types by key",
                           "cost type",
                           "KostenArten_ID, KostenArten",
                           "",
                           "sysIData_KostenArten ORDER BY KostenArten_ID"};
constexpr Table kClerks{"clerks",
                        "Who looks after seminars and dates: list",
                        "List the clerks by name",
                        "clerk",
                        "sachbearbeiterid AS Sachbearbeiter, s.mdnr AS MDNR, s.annr AS ANNr, Name AS Nachname, Vorname",
                        "",
                        "sysIData_SemSachbearbeiter_IT AS s LEFT OUTER JOIN arbeitnehmer AS a ON a.MDNR = s.mdnr AND "
                        "a.ANNR = s.annr ORDER BY Name, Vorname, sachbearbeiterid"};

struct Wanted {
    std::string filter;
    bool all_columns = false;
};

void AddTable(Command& program, const Table& table) {
    auto& group = program.Add(table.name, table.summary);
    auto& command = group.Add("list", table.list_summary);
    const auto wanted = std::make_shared<Wanted>();
    AddFilter(command, wanted->filter);
    if (*table.all_columns != '\0') {
        command.Flag("--all-columns", wanted->all_columns, "All columns in place of the most wanted");
    }
    command.Does([&table, wanted](Context& context) {
        const char* columns = wanted->all_columns ? table.all_columns : table.columns;
        return PrintRows(context, Select(context, fmt::format("SELECT {} FROM {}", columns, table.source)),
                         wanted->filter, table.thing);
    });
}

Sheet TargetsOf(Context& context, Int32 seminar) {
    SeminarOf(context, seminar);
    const auto groups = New<colSemZielgruppen>();
    (void)groups->Init(seminar, context.Session());
    Sheet sheet{{"Kurz", "Bezeichnung"}, {}};
    for (const auto& group : groups->NewEnum()) sheet.rows.push_back({group->BezeichungKurz(), group->Bezeichung()});
    return sheet;
}

// Those modules that have no stages of their own have these.
Text StageName(Int32 stage) {
    if (stage == 1) return "Vorgesetzte";
    return stage == 2 ? "Weiterbildung" : "";
}

const char* ModuleName(Int32 module) {
    if (module == 7) return "training needs";
    return module == 8 ? "requests for dates" : "";
}

Sheet Users(Context& context) {
    auto sheet = Select(context,
                        "SELECT r.UserID, r.ModulNr, '' AS Module, r.Stufe, s.Bezeichnung FROM Sem_ProzessRecht_IT AS r "
                        "LEFT OUTER JOIN Sem_ProzessStufe_IT AS s ON s.ModulNr = r.ModulNr AND s.Stufe = r.Stufe "
                        "ORDER BY r.UserID, r.ModulNr, r.Stufe");
    const auto with_stages = Select(context, "SELECT DISTINCT ModulNr FROM Sem_ProzessStufe_IT");
    for (auto& row : sheet.rows) {
        const auto module = To<Int32>(row[1]);
        row[2] = ModuleName(module);
        const bool has_stages =
            std::ranges::any_of(with_stages.rows, [&](const auto& one) { return To<Int32>(one.front()) == module; });
        if (!has_stages) row[4] = StageName(To<Int32>(row[3]));
    }
    return sheet;
}

}  // namespace

void AddOrganisers(Command& program) { AddTable(program, kOrganisers); }
void AddVenues(Command& program) { AddTable(program, kVenues); }
void AddCostTypes(Command& program) { AddTable(program, kCostTypes); }
void AddClerks(Command& program) { AddTable(program, kClerks); }

void AddTargets(Command& program) {
    struct Typed {
        std::optional<std::string> seminar;
        std::string filter;
    };
    auto& targets = program.Add("targets", "The target groups of seminars: list");
    auto& command = targets.Add("list", "List the target groups, or those of a seminar");
    const auto typed = std::make_shared<Typed>();
    command.Option("--seminar", &typed->seminar, "N", "SemID of the seminar").Naming(Names::kSeminar);
    AddFilter(command, typed->filter);
    command.Does([typed](Context& context) {
        auto sheet = typed->seminar ? TargetsOf(context, ReadInt32("--seminar", *typed->seminar))
                                    : Select(context, "SELECT ID, Kurz, Bezeichnung FROM sysIData_Zielgruppen ORDER BY ID");
        return PrintRows(context, std::move(sheet), typed->filter, "target group");
    });
}

void AddUsers(Command& program) {
    auto& users = program.Add("users", "Who may decide on requests and training needs: list");
    auto& command = users.Add("list", "List the users with the stages at which they may decide");
    const auto filter = std::make_shared<std::string>();
    AddFilter(command, *filter);
    command.Remark("A user is whom --user-id names. Where nobody is listed for a stage, nobody may decide there.");
    command.Does([filter](Context& context) { return PrintRows(context, Users(context), *filter, "right"); });
}

}  // namespace frontend
