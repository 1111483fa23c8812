#include <fmt/format.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "frontend/commands/columns.h"
#include "frontend/commands/commands.h"
#include "frontend/commands/lists.h"
#include "frontend/commands/look_ups.h"
#include "frontend/commands/persons.h"
#include "frontend/commands/requests.h"
#include "frontend/context.h"
#include "frontend/exit_codes.h"
#include "frontend/output/counted.h"
#include "frontend/read_value.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

// What is shown of the thing that a request is not listed by: of the persons that wait, or of what a person waits for.
struct Shown {
    std::vector<Text> columns;
    std::vector<Variant> (*values)(Context& context, clsSemWarteliste& entry);
};

std::vector<Variant> PersonValues(Context& context, clsSemWarteliste& entry) {
    const auto person = New<clsWBPerson>();
    Ref<DataSession> session = context.Session();
    person->Init(entry.MDNR(), entry.TNID(), To<Byte>(Variant(entry.ModId())), session);
    return {entry.MDNR(), person->PersGr(), entry.TNID(), NameVorname(*person)};
}

std::vector<Variant> DateValues(Context&, clsSemWarteliste& entry) {
    const auto date = entry.objSemTermin();
    return {entry.SemTerminID(), date->Code(), date->Titel()};
}

std::vector<Variant> SeminarValues(Context& context, clsSemWarteliste& entry) {
    const auto seminar = New<clsSeminar>();
    seminar->Init(entry.SemID(), context.Session());
    return {entry.SemID(), seminar->SemCode(), seminar->SemTitel()};
}

const Shown kPerson{{"MDNr", "PersGr", "TNID", "NameVorname"}, PersonValues};
const Shown kDate{{"SemTerminID", "Code", "Titel"}, DateValues};
const Shown kSeminar{{"SemID", "SemCode", "SemTitel"}, SeminarValues};

void PrintRequests(Context& context, colSemWarteliste& list, const Shown& shown, bool with_process) {
    Sheet sheet{{"SemWartelisteID"}, {}};
    sheet.columns.insert(sheet.columns.end(), shown.columns.begin(), shown.columns.end());
    for (const char* name : {"ErfDat", "Herkunft", "Wunschtermin", "Consent", "GeaendertAm", "GeaendertVon"}) {
        sheet.columns.emplace_back(name);
    }
    if (with_process) sheet.columns.emplace_back("Process");
    for (const auto& entry : list.NewEnum()) {
        auto& row = sheet.rows.emplace_back();
        row.push_back(entry->SemWartelisteID());
        for (auto& value : shown.values(context, *entry)) row.push_back(std::move(value));
        row.insert(row.end(),
                   {ShownAs(Form::kDay, entry->ErfDat()), entry->Herkunft(), ShownAs(Form::kDay, entry->Wunschtermin()),
                    ConsentOf(*entry), ShownAs(Form::kDay, entry->GeaendertAm()), entry->GeaendertVon()});
        if (with_process) row.push_back(ProcessOf(*entry)->ProzessStatusText());
    }
    context.Print(sheet);
    context.Note(Counted(sheet.rows.size(), "request"));
}

struct ListOptions {
    /// The date of a wait-list, the seminar of an interest list.
    std::optional<std::string> thing;
    std::optional<std::string> person;
    bool state = false;
};

int PrintWaitlist(Context& context, const ListOptions& options) {
    if (options.thing.has_value() == options.person.has_value()) {
        throw UsageError("Give one of --date N and --person PERSON.");
    }
    const auto list = New<colSemWarteliste>();
    if (options.thing) {
        const Int32 date = ReadInt32("--date", *options.thing);
        DateOf(context, date);
        list->LoadListSeminartermin(context.Session(), date);
        PrintRequests(context, *list, kPerson, options.state);
    } else {
        const auto person = PersonOf(context, ReadPerson(context, "--person", *options.person), KindOfPerson::kEmployee);
        PrintRequests(context, *person->colWarteliste(), kDate, options.state);
    }
    return kDone;
}

int PrintInterest(Context& context, const ListOptions& options) {
    if (options.thing.has_value() == options.person.has_value()) {
        throw UsageError("Give one of --seminar N and --person PERSON.");
    }
    const auto list = New<colSemWarteliste>();
    if (options.thing) {
        const Int32 seminar = ReadInt32("--seminar", *options.thing);
        SeminarOf(context, seminar);
        list->LoadListSeminar(context.Session(), seminar);
        PrintRequests(context, *list, kPerson, false);
    } else {
        const auto person = PersonOf(context, ReadPerson(context, "--person", *options.person), KindOfPerson::kEmployee);
        PrintRequests(context, *person->colInteressentenliste(), kSeminar, false);
    }
    return kDone;
}

constexpr const char* kColumnsFooter =
    "First come, first listed. Herkunft: 1 from a training need, 2 from a cancellation, 3 and 4 by consent. Consent is\n"
    "no where it was withdrawn and where nobody has given one, as behind a cancellation.";

void AddPersonOption(Command& command, ListOptions& options) {
    command.Option("--person", &options.person, "PERSON", "Number or name of the employee").Naming(Names::kPerson);
}

}  // namespace

void AddWaitlist(Command& program) {
    auto& command = program.Add("waitlist", "List who waits for a date, or which dates a person waits for");
    const auto options = std::make_shared<ListOptions>();
    command.Option("--date", &options->thing, "N", "SemTerminID of the date").Naming(Names::kDate);
    AddPersonOption(command, *options);
    command.Flag("--state", options->state,
                 "Show the state of the approval of each request: one select more for a request, two while it is "
                 "pending");
    command.Remark(kColumnsFooter);
    command.Does([options](Context& context) { return PrintWaitlist(context, *options); });
}

void AddInterest(Command& program) {
    auto& command =
        program.Add("interest", "List who is interested in a seminar, or which seminars a person is interested in");
    const auto options = std::make_shared<ListOptions>();
    command.Option("--seminar", &options->thing, "N", "SemID of the seminar").Naming(Names::kSeminar);
    AddPersonOption(command, *options);
    command.Remark(kColumnsFooter);
    command.Does([options](Context& context) { return PrintInterest(context, *options); });
}

}  // namespace frontend
