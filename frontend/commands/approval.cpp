#include <LumoConnection/process/process_objects.h>

#include <fmt/format.h>

#include <cstdio>
#include <memory>
#include <optional>
#include <string>

#include "frontend/commands/arguments.h"
#include "frontend/commands/columns.h"
#include "frontend/commands/commands.h"
#include "frontend/commands/lists.h"
#include "frontend/commands/look_ups.h"
#include "frontend/commands/need_record.h"
#include "frontend/commands/persons.h"
#include "frontend/commands/requests.h"
#include "frontend/context.h"
#include "frontend/exit_codes.h"
#include "frontend/output/screen_text.h"
#include "frontend/read_value.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

// A person of the client and a date, both looked up.
struct Request {
    Int32 date = 0;
    Int32 person = 0;
    Ref<clsTermin> the_date;
    Ref<clsWBPerson> the_person;
};

struct TypedRequest {
    std::string date;
    std::string person;
    std::string user;
};

Request RequestOf(Context& context, Int32 date, Int32 person) {
    return {date, person, DateOf(context, date), PersonOf(context, person, KindOfPerson::kEmployee)};
}

// The key, NULL where the person is none of the date.
Variant ParticipantIn(Context& context, const Request& request) {
    return context.Session()->LookupValue(
        "min(TeilnehmerID)", "Sem_Teilnehmer_IT",
        fmt::format("SemTerminID = {} AND MDNr = {} AND ANNr = {}", request.date, context.Client(), request.person));
}

// @param entry  as it was before, for one that is there no more
void ShowRequest(Context& context, const Request& request, Ref<clsSemWarteliste> entry, const char* outcome) {
    if (const auto stored = EntryOf(context, request.person, request.date)) entry = stored;
    const Sheet sheet{
        {"SemWartelisteID", "MDNr", "TNID", "NameVorname", "SemTerminID", "Titel", "ErfDat", "Herkunft", "Wunschtermin",
         "Consent", "GeaendertAm", "GeaendertVon", "TeilnehmerID", "Outcome", "Process"},
        {{entry->SemWartelisteID(), entry->MDNR(), entry->TNID(), NameVorname(*request.the_person), request.date,
          request.the_date->Titel(), ShownAs(Form::kDay, entry->ErfDat()), entry->Herkunft(),
          ShownAs(Form::kDay, entry->Wunschtermin()), ConsentOf(*entry), ShownAs(Form::kDay, entry->GeaendertAm()),
          entry->GeaendertVon(), ParticipantIn(context, request), outcome, ProcessOf(*entry)->ProzessStatusText()}}};
    context.Print(sheet, Shape::kOneRow);
}

int TellNoEntry(const Request& request) {
    fmt::print(stderr, "lumoseminar: {} is not on the wait-list of date {}.\n",
               Visible(NameVorname(*request.the_person)), request.date);
    return kRefused;
}

void AddRequest(Command& command, TypedRequest& typed, const char* user_help) {
    TakeDate(command, &typed.date);
    TakeEmployee(command, &typed.person);
    AddUserOption(command, typed.user, user_help).Required();
}

constexpr const char* kElsewhereHelp = "Enter it as one from elsewhere (Herkunft 4) [3]";

// consent

struct ConsentOptions {
    std::string date;
    std::optional<std::string> person;
    std::optional<std::string> need;
    std::string user;
    bool elsewhere = false;
};

int ConsentForPerson(Context& context, const Request& request, Int32 user, bool elsewhere) {
    const auto before = EntryOf(context, request.person, request.date);
    try {
        if (request.the_person->TeilnahmeZustimmen(request.date, user, elsewhere).IsEmpty()) {
            RaiseRefused(context.Session()->LastErrorText());
        }
    } catch (...) {
        if (!before && EntryOf(context, request.person, request.date)) {
            fmt::print(stderr, "lumoseminar: The entry was made, but its process was not opened.\n");
        }
        throw;
    }
    ShowRequest(context, request, before, before ? "consent renewed" : "entered, process opened");
    return kDone;
}

const char* OutcomeForNeed(const Variant& result, clsANWBBedarf& need) {
    if (!result.IsEmpty()) return "approved, put on the wait-list";
    return ProcessOf(need)->ProzessStatus() == LumoConnection::ProcessStatus::kApproved
               ? "approved, on the wait-list already"
               : "consent recorded, more is pending";
}

int ConsentForNeed(Context& context, Int32 date, Int32 key, Int32 user) {
    DateOf(context, date);
    const auto need = NeedOf(context, key);
    return TakeStep(ProcessOf(*need), [&] {
        const char* outcome = OutcomeForNeed(need->TeilnahmeZustimmen(date, user), *need);
        const auto entry = EntryOf(context, need->ANNr(), date);
        Sheet sheet = NeedHead();
        AddNeedRow(context, sheet, *need);
        sheet.columns.insert(sheet.columns.end(), {"SemTerminID", "SemWartelisteID", "Outcome"});
        auto& row = sheet.rows.front();
        row.insert(row.end(), {date, entry ? Variant(entry->SemWartelisteID()) : Variant::Null(), outcome});
        context.Print(sheet, Shape::kOneRow);
        return kDone;
    });
}

int Consent(Context& context, const ConsentOptions& options) {
    if (options.person.has_value() == options.need.has_value()) throw UsageError("Give one of PERSON and --need KEY.");
    const Int32 date = ReadInt32("DATE", options.date);
    const Int32 user = ReadUser(options.user);
    if (options.need) return ConsentForNeed(context, date, ReadInt32("--need", *options.need), user);
    const Int32 person = ReadPerson(context, "PERSON", *options.person);
    return ConsentForPerson(context, RequestOf(context, date, person), user, options.elsewhere);
}

// approve

struct ApproveOptions : TypedRequest {
    bool elsewhere = false;
    bool without_process = false;
    bool remove_entry = false;
};

// The result of the route, and what the session told behind it.
struct Approval {
    Bool result;
    Text refusal;
};

int TellApproval(Context& context, const Request& request, const Ref<clsSemWarteliste>& entry, const Variant& before,
                 const Approval& approval, const ApproveOptions& options) {
    if (!approval.result) {
        if (before.IsNull()) RaiseRefused(approval.refusal);
        const char* outcome = options.without_process ? "already a participant" : "approval recorded, already a participant";
        ShowRequest(context, request, entry, outcome);
        fmt::print(stderr, "lumoseminar: {} is participant {} of date {} already; nobody was enrolled.\n",
                   Visible(NameVorname(*request.the_person)), To<Int32>(before), request.date);
        return kRefused;
    }
    const bool is_made = before.IsNull() && !ParticipantIn(context, request).IsNull();
    ShowRequest(context, request, entry,
                !is_made               ? "approval recorded, more is pending"
                : options.remove_entry ? "participant made, entry removed"
                                       : "participant made");
    return kDone;
}

int Approve(Context& context, const ApproveOptions& options) {
    const Int32 date = ReadInt32("DATE", options.date);
    const Int32 user = ReadUser(options.user);
    const Int32 person = ReadPerson(context, "PERSON", options.person);
    const auto request = RequestOf(context, date, person);
    const auto entry = EntryOf(context, person, date);
    if (!entry) return TellNoEntry(request);
    const auto before = ParticipantIn(context, request);
    return TakeStep(ProcessOf(*entry), [&] {
        Approval approval{};
        if (options.without_process) {
            // The sense is this way round: the entry goes where nobody is told.
            entry->DoSendInfos(!options.remove_entry);
            approval.result = entry->TeilnahmeGenehmigen(user);
        } else {
            approval.result = request.the_person->TeilnahmeGenehmigen(date, user, options.elsewhere);
        }
        approval.refusal = context.Session()->LastErrorText();
        return TellApproval(context, request, entry, before, approval, options);
    });
}

// withdraw

int Withdraw(Context& context, const TypedRequest& typed) {
    const Int32 date = ReadInt32("DATE", typed.date);
    const Int32 user = ReadUser(typed.user);
    const Int32 person = ReadPerson(context, "PERSON", typed.person);
    const auto request = RequestOf(context, date, person);
    const auto entry = EntryOf(context, person, date);
    if (!entry) return TellNoEntry(request);
    const bool stood = entry->Status() != 0;
    // The list has read the entry, so that the day that the person wishes is written as it was.
    entry->ZustimmungVerwerfen(user);
    ShowRequest(context, request, entry, stood ? "consent withdrawn" : "there was no consent to withdraw");
    return kDone;
}

}  // namespace

void AddConsent(Command& program) {
    auto& command = program.Add("consent", "Consent that a person attends a date, or to a training need with a date");
    const auto options = std::make_shared<ConsentOptions>();
    TakeDate(command, &options->date);
    command.Argument("PERSON", &options->person, "Number or name of the employee").Naming(Names::kPerson);
    command.Option("--need", &options->need, "N", "WBID of the training need, in place of PERSON");
    AddUserOption(command, options->user, "Number of the user who consents").Required();
    command.Flag("--elsewhere", options->elsewhere, kElsewhereHelp).Excludes("--need");
    command.Remark(
        "For a person: an entry on the wait-list of the date gets its consent again; without one an entry is made and its\n"
        "process opened. For a need: the consent counts in the process of the need. Once that is approved the employee\n"
        "comes on the wait-list of the date, with an entry that has no process of its own yet.");
    command.Writes();
    command.Does([options](Context& context) { return Consent(context, *options); });
}

void AddApprove(Command& program) {
    auto& command = program.Add("approve", "Approve a request on the wait-list of a date");
    const auto options = std::make_shared<ApproveOptions>();
    AddRequest(command, *options, "Number of the user who decides");
    command.Flag("--elsewhere", options->elsewhere, kElsewhereHelp);
    command
        .Flag("--without-process", options->without_process,
              "Make the participant at once, whatever the state of the process (Herkunft 5)")
        .Excludes("--elsewhere");
    command.Flag("--remove-entry", options->remove_entry, "Remove the entry once the participant is made").Needs("--without-process");
    command.Remark(
        "The approval counts in the process of the request. With the last one the person becomes a participant, and the\n"
        "costs of the date a cost line; the entry stays. Neither the consent nor what speaks against it (check) is looked\n"
        "at. Where the person is a participant already nobody is enrolled, but the approval stays recorded. The process is\n"
        "not told of what is done without it.");
    command.Writes();
    command.Does([options](Context& context) { return Approve(context, *options); });
}

void AddWithdraw(Command& program) {
    auto& command = program.Add("withdraw", "Withdraw the consent to a request on the wait-list of a date");
    const auto typed = std::make_shared<TypedRequest>();
    AddRequest(command, *typed, "Number of the user who withdraws it");
    command.Remark("The entry stays, and its process is not told.");
    command.Writes();
    command.Does([typed](Context& context) { return Withdraw(context, *typed); });
}

}  // namespace frontend
