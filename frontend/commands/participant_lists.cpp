#include "frontend/commands/participant_lists.h"

#include <fmt/format.h>

#include <cstdint>
#include <optional>

#include "frontend/commands/checks.h"
#include "frontend/commands/lists.h"
#include "frontend/commands/participant_columns.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

std::optional<Int32> DateOfParticipant(Context& context, Int32 key) {
    const auto& session = context.Session();
    if (!session->OpenSelect(fmt::format("SELECT SemTerminID FROM Sem_Teilnehmer_IT WHERE TeilnehmerID = {}", key))) {
        RaiseRefused(session->LastErrorText());
    }
    const auto rows = session->Recordset();
    std::optional<Int32> date;
    if (!rows->Eof()) date = To<Int32>(rows->Fields().Item(0).Value());
    rows->Close();
    return date;
}

}  // namespace

Ref<colTeilnehmer> ParticipantsOf(Context& context, Int32 date, const Text& filter) {
    auto list = New<colTeilnehmer>();
    if (!list->Init(date, context.Session(), filter)) RaiseRefused(context.Session()->LastErrorText());
    return list;
}

FoundParticipant ParticipantOf(Context& context, Int32 key) {
    FoundParticipant found;
    const auto date = DateOfParticipant(context, key);
    if (date && HasDate(context, *date)) {
        found.list = ParticipantsOf(context, *date, fmt::format(" AND TeilnehmerID = {}", key));
        found.participant = found.list->Item(KeyText(key));
    }
    if (!found.participant) RaiseNoSuch(context, "participant", key);
    return found;
}

void CheckAttendance(clsTeilnehmer& participant, const std::vector<Change<clsTeilnehmer>>& changes) {
    const auto date = participant.clsTermin();
    const auto Or = [](DateTime own, DateTime of_date) { return own ? own : of_date; };
    if (ChangesAny(changes, {"BeginnDatum", "EndeDatum"})) {
        RefuseEndBeforeBegin({"BeginnDatum", Or(participant.BeginnDatum(), date->BeginnDatum())},
                             {"EndeDatum", Or(participant.EndeDatum(), date->EndeDatum())});
    }
    if (ChangesAny(changes, {"BegUhrzeit", "EndUhrzeit"})) {
        const auto from = Or(participant.BegUhrzeit(), date->BeginnUhrzeit());
        const auto to = Or(participant.EndUhrzeit(), date->EndeUhrzeit());
        if (from && to) RefuseClockBefore({"BegUhrzeit", from}, {"EndUhrzeit", to});
    }
}

void WriteParticipant(Context& context, clsTeilnehmer& participant) {
    // The user number is taken for nothing.
    constexpr Int32 kNoUser = 0;
    if (!participant.WriteToDatabase(kNoUser)) RaiseRefused(context.Session()->LastErrorText());
}

void ShowParticipant(Context& context, Int32 key) {
    const auto participant = ParticipantOf(context, key).participant;
    Sheet sheet = ParticipantColumns().Head(Extent::kAll);
    ParticipantColumns().AddRow(sheet, *participant, Extent::kAll);
    const auto AddValue = [&](const char* name, Variant value) {
        sheet.columns.emplace_back(name);
        sheet.rows.front().push_back(std::move(value));
    };
    AddValue("PersGr", participant->PersGr());
    AddValue("PersNr", participant->PersNr());
    AddValue("NameVorname", participant->NameVorname());
    AddValue("TeilnehmerKosten", AmountOf(participant->TeilnehmerKosten()));
    context.Print(sheet, Shape::kOneRow);
}

Text PlacesText(Int32 limit, Int32 enrolled) {
    if (limit == 0) return "no limit of places";
    const std::int64_t free = std::int64_t{limit} - enrolled;
    return free < 0 ? fmt::format("overbooked by {}", -free) : fmt::format("{} of {} places free", free, limit);
}

}  // namespace frontend
