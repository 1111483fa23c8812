#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "frontend/asking.h"
#include "frontend/commands/arguments.h"
#include "frontend/commands/checks.h"
#include "frontend/commands/commands.h"
#include "frontend/commands/enrolment.h"
#include "frontend/commands/lists.h"
#include "frontend/commands/look_ups.h"
#include "frontend/commands/participant_columns.h"
#include "frontend/commands/participant_lists.h"
#include "frontend/context.h"
#include "frontend/exit_codes.h"
#include "frontend/output/counted.h"
#include "frontend/output/screen_text.h"
#include "frontend/output/value_text.h"
#include "frontend/read_value.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

using Changes = std::vector<Change<clsTeilnehmer>>;

void AddKeyOption(Command& command, std::string& key) {
    command.Argument("KEY", &key, "TeilnehmerID of the participant").Required().Naming(Names::kParticipant);
}

// list

struct ListOptions {
    std::string date;
    bool enrolled = false;
};

void AddRow(Sheet& sheet, clsTeilnehmer& participant, const std::vector<DateTime>& days) {
    const auto attendance = AttendanceOf(participant);
    const auto attended =
        std::ranges::count_if(days, [&](DateTime day) { return day >= attendance.begin && day <= attendance.end; });
    sheet.rows.push_back({participant.TeilnehmerID(), participant.MDNR(), participant.PersGr(), participant.PersNr(),
                          participant.NameVorname(), StateOf(participant), ShownAs(Form::kDay, attendance.begin),
                          ShownAs(Form::kDay, attendance.end), To<Int32>(attended), AmountOf(participant.TeilnehmerKosten())});
}

int List(Context& context, const ListOptions& options) {
    const Int32 key = ReadInt32("DATE", options.date);
    const auto date = DateOf(context, key);
    const auto list = ParticipantsOf(context, key, options.enrolled ? " AND Teilnahme <> 0" : "");
    const auto days = DaysOf(*date);
    Sheet sheet{{"TeilnehmerID", "MDNr", "PersGr", "PersNr", "NameVorname", "State", "BeginnDatum", "EndeDatum", "Days",
                 "TeilnehmerKosten"},
                {}};
    Int32 enrolled = 0;
    for (const auto& participant : list->NewEnum()) {
        AddRow(sheet, *participant, days);
        if (participant->Teilnahme() != 0) ++enrolled;
    }
    context.Print(sheet);
    context.Note(fmt::format("{}, {}", Counted(sheet.rows.size(), "participant"), PlacesText(date->MaxTeil(), enrolled)));
    return kDone;
}

void AddList(Command& participants) {
    auto& command = participants.Add("list", "List the participants of a date");
    const auto options = std::make_shared<ListOptions>();
    TakeDate(command, &options->date);
    command.Flag("--enrolled", options->enrolled, "Without those who have cancelled");
    command.Does([options](Context& context) { return List(context, *options); });
}

// set

void RequireEmployee(Context& context, clsTeilnehmer& participant, const Changes& changes) {
    if (participant.ANNr() == 0 || !ChangesAny(changes, {"MDNr", "ANNr"})) return;
    if (!IsEmployee(context, participant.MDNR(), participant.ANNr())) {
        Raise(ErrorNumber::kKeyNotFound,
              fmt::format("There is no employee {} of client {}.", participant.ANNr(), participant.MDNR()));
    }
}

int Set(Context& context, Int32 key, const Changes& changes) {
    if (changes.empty()) throw UsageError("Nothing to set: name a column and its value.");
    const auto participant = ParticipantOf(context, key).participant;
    RequireRows(context, changes);
    ParticipantColumns().LetTextsAgain(*participant);
    LetAll(*participant, changes);
    RequireEmployee(context, *participant, changes);
    CheckAttendance(*participant, changes);
    WriteParticipant(context, *participant);
    ShowParticipant(context, key);
    return kDone;
}

void AddSet(Command& participants) {
    struct Typed {
        std::string key;
        std::vector<std::string> pairs;
    };
    auto& command = participants.Add("set", "Change columns of a participant and show the record as it is stored");
    const auto typed = std::make_shared<Typed>();
    AddKeyOption(command, typed->key);
    command.Argument("CHANGES", &typed->pairs, "column=value, as in Ergebnis=2 Bemerkung=\"kam später\"");
    const auto values = ParticipantColumns().AddOptions(command);
    command.Remark(
        "Nothing is checked as with enrol. Days and times that are typed as nothing at all, as in BeginnDatum=, become\n"
        "those of the date.");
    command.Writes();
    command.Does([typed, values](Context& context) {
        const Int32 key = ReadInt32("KEY", typed->key);
        return Set(context, key, ParticipantColumns().ReadChanges(*values, typed->pairs));
    });
}

// cancel

struct CancelOptions {
    std::string key;
    std::optional<std::string> on;
    std::optional<std::string> reason;
    std::optional<std::string> cost;
    bool to_waitlist = false;
};

int TellCancelledAlready(Int32 key, DateTime since) {
    fmt::print(stderr, "lumoseminar: Participant {} is cancelled already{}.\n", key, since ? ", since " + DateText(since) : "");
    return kRefused;
}

int Cancel(Context& context, const CancelOptions& options) {
    const Int32 key = ReadInt32("KEY", options.key);
    const auto day = options.on ? ReadDay("--on", *options.on) : Today();
    const auto reason = options.reason ? ReadInt32("--reason", *options.reason) : Int32{0};
    const auto cost = options.cost ? ReadInt16("--cost", *options.cost) : Int16{0};
    const auto participant = ParticipantOf(context, key).participant;
    if (participant->Teilnahme() == 0) return TellCancelledAlready(key, participant->storniertam());
    // The wait-list comes first. Where it refuses, the enrolment stands as before; where the cancellation is refused
    // behind it, the person has both, and the command can be given once more: an entry that is there is not made twice.
    // The other way round a refusal would leave the person without a place and without the wish for one, and a
    // participant who is cancelled already is not taken up again.
    if (options.to_waitlist) participant->StornoTeilnehmerInWarteliste();
    try {
        ParticipantColumns().LetTextsAgain(*participant);
        participant->Teilnahme(0);
        participant->storniertam(day);
        participant->StornoGrund(reason);
        participant->StornoKosten(cost);
        WriteParticipant(context, *participant);
    } catch (...) {
        if (options.to_waitlist) {
            fmt::print(stderr, "lumoseminar: Participant {} waits now, but is still enrolled.\n", key);
        }
        throw;
    }
    ShowParticipant(context, key);
    if (options.to_waitlist) {
        const Int32 seminar = participant->clsTermin()->SemID();
        context.Note(seminar == 0 ? fmt::format("on the wait-list of date {}", participant->SemTerminID())
                                  : fmt::format("on the interest list of seminar {}", seminar));
    }
    return kDone;
}

void AddCancel(Command& participants) {
    auto& command = participants.Add("cancel", "Cancel an enrolment and show the record as it is stored");
    const auto options = std::make_shared<CancelOptions>();
    AddKeyOption(command, options->key);
    command.Option("--on", &options->on, "DAY", "Day of cancellation, as 1.3.2027, today or +7d [today]");
    command.Option("--reason", &options->reason, "N", "Code of the reason (StornoGrund) [0, none]");
    command.Option("--cost", &options->cost, "N", "Costs in whole units (StornoKosten) [0]");
    command.Flag("--to-waitlist", options->to_waitlist,
                 "Put the person on the interest list of the seminar; where the date has no seminar, on the "
                 "wait-list of the date");
    command.Remark("Cost lines stay, but count no more: from now on the costs are those of the cancellation.");
    command.Writes();
    command.Does([options](Context& context) { return Cancel(context, *options); });
}

// remove

// Asked of an object of its own: the one that is removed is to read its cost lines when it goes.
std::string WhatGoes(Context& context, Int32 key) {
    const auto participant = ParticipantOf(context, key).participant;
    const auto lines = static_cast<std::size_t>(participant->objKosten()->Count());
    const auto gone = SentenceOn({{lines, "cost line"}}, "goes with it", "go with it");
    return fmt::format("Participant {}, {}, of date {}:{}\n", key, Visible(participant->NameVorname()),
                       participant->SemTerminID(), gone.empty() ? " nothing else goes with it." : gone);
}

Question MayRemove(Context& context, const std::vector<Int32>& keys) {
    Question question{"", fmt::format("Remove {}?", Counted(keys.size(), "participant")), "Nothing was removed."};
    for (const Int32 key : keys) question.facts += WhatGoes(context, key);
    return question;
}

int Remove(Context& context, const std::vector<Int32>& keys) {
    // Every key is looked up before anything is removed.
    std::vector<FoundParticipant> found;
    found.reserve(keys.size());
    for (const Int32 key : keys) found.push_back(ParticipantOf(context, key));
    if (!IsAgreedOrYes(context, [&] { return MayRemove(context, keys); })) return kRefused;
    Sheet sheet{{ParticipantColumns().key_name, "NameVorname", "Outcome", "CostLines"}, {}};
    try {
        for (const auto& [list, participant] : found) {
            const Int32 key = participant->TeilnehmerID();
            const Text name = participant->NameVorname();
            const auto costs = participant->objKosten();
            const auto Tell = [&](const char* outcome) { sheet.rows.push_back({key, name, outcome, costs->Count()}); };
            if (!list->Remove(KeyText(key))) RaiseRefused(context.Session()->LastErrorText());
            // Left behind, the lines would be those of the next participant who gets this key.
            try {
                for (const auto& line : costs->NewEnum()) line->DeleteFromDatabase();
            } catch (...) {
                Tell("removed, its costs not");
                throw;
            }
            Tell("removed");
        }
    } catch (...) {
        context.Print(sheet);
        throw;
    }
    context.Print(sheet);
    return kDone;
}

void AddRemove(Command& participants) {
    auto& command = participants.Add("remove", "Remove participants; none where one of the keys is unknown");
    const auto typed = std::make_shared<std::vector<std::string>>();
    command.Argument("KEY", typed.get(), "TeilnehmerID of each participant").Required().Naming(Names::kParticipant);
    command.Remark("Their cost lines go with them. To keep a trace of an enrolment, cancel it.");
    command.Asks();
    command.Writes();
    command.Does([typed](Context& context) { return Remove(context, ReadKeys("KEY", *typed)); });
}

// costs

struct CostsOptions {
    std::string key;
    std::optional<std::string> add;
    std::optional<std::string> centre;
    std::optional<std::string> type;
};

// Empty where the type is not there.
Variant NameOfCostType(Context& context, Int32 type) {
    return context.Session()->LookupValue("KostenArten", "sysIData_KostenArten", fmt::format("KostenArten_ID = {}", type));
}

void ShowCosts(Context& context, Int32 key) {
    const auto participant = ParticipantOf(context, key).participant;
    Sheet sheet{{"KostenID", "KostenArtID", "KostenArt", "Kostenbetrag", "Kost"}, {}};
    for (const auto& line : participant->objKosten()->NewEnum()) {
        sheet.rows.push_back({line->KostenID(), line->KostenArtID(), NameOfCostType(context, line->KostenArtID()),
                              AmountOf(line->Kostenbetrag()), line->Kost()});
    }
    context.Print(sheet);
    const auto costs = AmountOf(participant->TeilnehmerKosten());
    const auto* money = costs.If<Money>();
    const Text amount = money != nullptr ? MoneyText(*money) : To<Text>(costs);
    context.Note(participant->Teilnahme() == 0
                     ? fmt::format("cancelled: {} in place of the cost lines", amount)
                     : fmt::format("{}, {} in all", Counted(sheet.rows.size(), "cost line"), amount));
}

int Costs(Context& context, const CostsOptions& options) {
    const Int32 key = ReadInt32("KEY", options.key);
    const auto amount = options.add ? ReadMoney("--add", *options.add) : Money();
    const auto centre = options.centre ? ReadInt32("--centre", *options.centre) : Int32{0};
    const auto type = options.type ? ReadInt32("--type", *options.type) : Int32{0};
    if (options.add) {
        if (type != 0) RequireRow(context, "KostenArtID", type);
        const auto line = ParticipantOf(context, key).participant->objKosten()->Add(0);
        line->Kostenbetrag(To<Single>(amount));
        line->Kost(centre);
        line->KostenArtID(type);
        line->WriteToDatabase();
    }
    ShowCosts(context, key);
    return kDone;
}

void AddCosts(Command& participants) {
    auto& command = participants.Add("costs", "Show the cost lines of a participant, or add one");
    const auto options = std::make_shared<CostsOptions>();
    AddKeyOption(command, options->key);
    command.Option("--add", &options->add, "X", "Add a line of this amount (Kostenbetrag)");
    command.Option("--centre", &options->centre, "N", "Cost centre that pays (Kost) [0, none]").Needs("--add");
    command.Option("--type", &options->type, "N", "Key of the cost type (KostenArtID) [that of \"Teilnehmerkosten\"]").Needs("--add");
    command.Writes();
    command.Does([options](Context& context) { return Costs(context, *options); });
}

}  // namespace

void AddParticipants(Command& program) {
    auto& participants = program.Add("participants", "The participants of a date: list, enrol, set, cancel, remove, costs");
    AddList(participants);
    AddEnrol(participants);
    AddSet(participants);
    AddCancel(participants);
    AddRemove(participants);
    AddCosts(participants);
}

}  // namespace frontend
