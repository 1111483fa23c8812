#include "frontend/commands/enrolment.h"
#include "frontend/asking.h"
#include "frontend/commands/arguments.h"

#include <fmt/format.h>

#include <cstdio>
#include <memory>
#include <string>

#include "frontend/commands/lists.h"
#include "frontend/commands/look_ups.h"
#include "frontend/commands/participant_columns.h"
#include "frontend/commands/participant_lists.h"
#include "frontend/commands/persons.h"
#include "frontend/exit_codes.h"
#include "frontend/output/counted.h"
#include "frontend/output/findings.h"
#include "frontend/output/screen_text.h"
#include "frontend/read_value.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

constexpr const char* kAllTheSame = "Enrol all the same?";

struct EnrolOptions {
    std::string date;
    std::string person;
    std::string kind;
    bool force = false;
    bool overbook = false;
    bool no_check_seminar = false;
    bool no_check_taken = false;
    bool no_check_prerequisites = false;
    bool german = false;
};

void LetPerson(clsTeilnehmer& participant, clsWBPerson& person) {
    participant.MDNR(person.MDNR());
    if (person.IsArbeitnehmer()) participant.ANNr(person.PersonID());
    if (person.IsBewerber()) participant.BWID(person.PersonID());
    if (person.IsLeiharbeiter()) participant.LAID(person.PersonID());
}

void PrintFindings(colErrorMsg& findings, Language language) {
    fmt::print(stderr, "{}:\n", Counted(static_cast<std::size_t>(findings.Count()), "finding"));
    for (const auto& finding : findings.NewEnum()) fmt::print(stderr, "    {}\n", FindingText(*finding, language));
}

Text NotEnrolled(clsTeilnehmer& participant, Int32 date) {
    return fmt::format("{} was not enrolled in date {}.", Visible(participant.NameVorname()), date);
}

// Whether nothing speaks against it, or it is wanted all the same.
bool IsToBeWritten(const Context& context, clsTeilnehmer& participant, Int32 date, const EnrolOptions& options) {
    if (participant.CheckTeilnehmerAnmeldung(!options.no_check_seminar, !options.no_check_taken,
                                             !options.no_check_prerequisites)) {
        return true;
    }
    PrintFindings(*participant.colErrorsAnmeldung(), options.german ? Language::kGerman : Language::kEnglish);
    return options.force || IsAgreed(context, {"", kAllTheSame, NotEnrolled(participant, date), "--force"});
}

// Whether there is a place, or it is wanted all the same.
// @param enrolled  how many are, without this one
bool HasPlace(const Context& context, clsTeilnehmer& participant, clsTermin& date, Int32 enrolled, const EnrolOptions& options) {
    const Int32 places = date.MaxTeil();
    if (options.overbook || places == 0 || enrolled < places || participant.Teilnahme() == 0) return true;
    return IsAgreed(context, {fmt::format("Date {} is full: {} for {}.\n", date.SemTerminID(),
                                          Counted(static_cast<std::size_t>(enrolled), "participant"),
                                          Counted(static_cast<std::size_t>(places), "place")),
                              kAllTheSame, NotEnrolled(participant, date.SemTerminID()), "--overbook"});
}

void WriteWithCosts(Context& context, clsTeilnehmer& participant, Money costs) {
    try {
        // Not by the let of TeilnehmerKosten, which goes elsewhere for a record that is entered as cancelled.
        if (costs != Money()) participant.objKosten()->Add(0)->Kostenbetrag(To<Single>(costs));
        WriteParticipant(context, participant);
    } catch (...) {
        if (const Int32 key = participant.TeilnehmerID(); key != 0) {
            fmt::print(stderr, "lumoseminar: Participant {} was enrolled, but without the costs.\n", key);
        }
        throw;
    }
}

int Enrol(Context& context, const EnrolOptions& options, const TypedValues& values) {
    const Int32 key = ReadInt32("DATE", options.date);
    const auto kind = ReadKind(options.kind);
    const auto changes = EnrolmentColumns().ReadChanges(values, {});
    const Int32 person_key = ReadPerson(context, "PERSON", options.person, kind);
    const auto date = DateOf(context, key);
    const auto person = PersonOf(context, person_key, kind);
    // The list that the date counts its places by.
    const auto list = date->clscolTeilnehmer();
    const Int32 enrolled = date->AnzAnmeldungen();
    const auto participant = list->AddEmptyObject().As<clsTeilnehmer>();
    const Text key_in_list = participant->Key();
    try {
        LetPerson(*participant, *person);
        EnrolmentColumns().LetTextsAgain(*participant);
        LetAll(*participant, changes);
        CheckAttendance(*participant, changes);
        if (!IsToBeWritten(context, *participant, key, options) || !HasPlace(context, *participant, *date, enrolled, options)) {
            list->RemoveColOnly(key_in_list);
            return kRefused;
        }
        WriteWithCosts(context, *participant, date->KostenProTN());
    } catch (...) {
        list->RemoveColOnly(key_in_list);
        throw;
    }
    list->ChangeKey(key_in_list, participant->Key());
    ShowParticipant(context, participant->TeilnehmerID());
    context.Note(PlacesText(date->MaxTeil(), date->AnzAnmeldungen()));
    return kDone;
}

}  // namespace

void AddEnrol(Command& participants) {
    auto& command = participants.Add("enrol", "Enrol a person in a date, and show the record as it is stored");
    const auto options = std::make_shared<EnrolOptions>();
    TakeDate(command, &options->date);
    TakePerson(command, &options->person);
    AddKindOption(command, options->kind);
    command.Flag("--force", options->force, "Enrol whatever the checks find");
    command.Flag("--overbook", options->overbook, "Enrol whether or not a place is free");
    command.Flag("--no-check-seminar", options->no_check_seminar, "Do not look for open dates of the same seminar");
    command.Flag("--no-check-taken", options->no_check_taken, "Do not look whether the seminar was taken before");
    command.Flag("--no-check-prerequisites", options->no_check_prerequisites, "Do not look at prerequisites");
    command.Flag("--german", options->german, "Tell the findings in German");
    const auto values = EnrolmentColumns().AddOptions(command);
    command.Remark(
        "What speaks against it is told on standard error. Then nothing is written, unless with --force or after a yes\n"
        "on a terminal; the same goes for a date that is full, with --overbook. For a temporary worker they look at everybody's\n"
        "enrolments. What the date costs each participant becomes a cost line. Days and times that are not typed are\n"
        "those of the date.");
    command.Writes();
    command.Does([options, values](Context& context) { return Enrol(context, *options, *values); });
}

}  // namespace frontend
