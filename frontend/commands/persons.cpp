#include "frontend/commands/persons.h"

#include <fmt/format.h>

#include <cstdio>
#include <memory>
#include <string>

#include "frontend/commands/commands.h"
#include "frontend/commands/participant_columns.h"
#include "frontend/context.h"
#include "frontend/exit_codes.h"
#include "frontend/output/counted.h"
#include "frontend/read_value.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

constexpr KindOfPerson kKinds[] = {KindOfPerson::kEmployee, KindOfPerson::kApplicant, KindOfPerson::kWorker};

void PrintPerson(const Context& context, clsWBPerson& person, KindOfPerson kind) {
    const Sheet sheet{{"MDNR", "PersonID", "Kind", "PersGr", "PersNr", "Nachname", "Vorname"},
                      {{person.MDNR(), person.PersonID(), NameOf(kind), person.PersGr(), person.PersNr(),
                        person.Nachname(), person.Vorname()}}};
    context.Print(sheet, Shape::kOneRow);
}

void PrintHistory(const Context& context, clsWBPerson& person) {
    Sheet sheet{{"TeilnehmerID", "SemTerminID", "Titel", "BeginnDatum", "EndeDatum", "State", "TeilnehmerKosten"}, {}};
    for (const auto& enrolment : *person.colWeiterbildungen()) {
        const auto [begin, end] = AttendanceOf(*enrolment);
        sheet.rows.push_back({enrolment->TeilnehmerID(), enrolment->SemTerminID(), enrolment->clsTermin()->Titel(),
                              ShownAs(Form::kDay, begin), ShownAs(Form::kDay, end), StateOf(*enrolment),
                              AmountOf(enrolment->TeilnehmerKosten())});
    }
    if (context.options.format != Format::kJson) fmt::print("\n");
    context.Print(sheet);
    context.Note(Counted(sheet.rows.size(), "enrolment"));
}

void AddShow(Command& persons) {
    struct Typed {
        std::string key;
        std::string kind;
        bool history = false;
    };
    auto& command = persons.Add("show", "Show a person, with all enrolments if wanted");
    const auto typed = std::make_shared<Typed>();
    command.Argument("KEY", &typed->key, "Number of the employee, key of the applicant or temporary worker").Required();
    AddKindOption(command, typed->kind);
    command.Flag("--history", typed->history, "Show the enrolments of the person, the earliest first");
    command.Remark(
        "With --history the enrolments come behind the person: in JSON as an array of its own behind the object, in\n"
        "CSV behind a blank line.");
    command.Does([typed](Context& context) {
        const Int32 key = ReadInt32("KEY", typed->key);
        const auto kind = ReadKind(typed->kind);
        const auto person = PersonOf(context, key, kind);
        PrintPerson(context, *person, kind);
        if (typed->history) PrintHistory(context, *person);
        return kDone;
    });
}

}  // namespace

const char* NameOf(KindOfPerson kind) {
    switch (kind) {
        case KindOfPerson::kApplicant:
            return "applicant";
        case KindOfPerson::kWorker:
            return "worker";
        case KindOfPerson::kEmployee:
            break;
    }
    return "employee";
}

void AddKindOption(Command& command, std::string& typed) {
    command.Option("--kind", &typed, "KIND", "employee, applicant or worker (a temporary one) [employee]");
}

KindOfPerson ReadKind(const std::string& typed) {
    if (typed.empty()) return KindOfPerson::kEmployee;
    for (const auto kind : kKinds) {
        if (typed == NameOf(kind)) return kind;
    }
    throw UsageError(fmt::format("--kind: {} is none of employee, applicant, worker.", OneLine(typed)));
}

Ref<clsWBPerson> PersonOf(Context& context, Int32 key, KindOfPerson kind) {
    auto person = New<clsWBPerson>();
    Ref<DataSession> session = context.Session();
    person->Init(context.Client(), key, static_cast<Byte>(kind), session);
    if (person->PersNr().empty() && person->Nachname().empty() && person->Vorname().empty()) {
        const bool of_client = kind == KindOfPerson::kEmployee;
        Raise(ErrorNumber::kKeyNotFound, fmt::format("There is no {} {}{}.", NameOf(kind), key,
                                                     of_client ? fmt::format(" of client {}", context.Client()) : ""));
    }
    return person;
}

void AddPersons(Command& program) {
    auto& persons = program.Add("persons", "Employees, applicants and temporary workers: show");
    AddShow(persons);
}

}  // namespace frontend
