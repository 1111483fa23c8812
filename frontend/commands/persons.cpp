#include "frontend/commands/persons.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "frontend/commands/arguments.h"
#include "frontend/commands/commands.h"
#include "frontend/commands/lists.h"
#include "frontend/commands/look_ups.h"
#include "frontend/commands/participant_columns.h"
#include "frontend/context.h"
#include "frontend/exit_codes.h"
#include "frontend/output/counted.h"
#include "frontend/text_filter.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

Sheet Head() { return {{"MDNR", "PersonID", "Kind", "PersGr", "PersNr", "Nachname", "Vorname"}, {}}; }

Sheet PersonSheet(clsWBPerson& person, KindOfPerson kind) {
    return {Head().columns,
            {{person.MDNR(), person.PersonID(), NameOf(kind), person.PersGr(), person.PersNr(), person.Nachname(),
              person.Vorname()}}};
}

void PrintWithHistory(const Context& context, const Sheet& row, clsWBPerson& person) {
    Part history{"Enrolments", {}};
    auto& sheet = history.sheet;
    sheet = {{"TeilnehmerID", "SemTerminID", "Titel", "BeginnDatum", "EndeDatum", "State", "TeilnehmerKosten"}, {}};
    for (const auto& enrolment : *person.colWeiterbildungen()) {
        const auto [begin, end] = AttendanceOf(*enrolment);
        sheet.rows.push_back({enrolment->TeilnehmerID(), enrolment->SemTerminID(), enrolment->clsTermin()->Titel(),
                              ShownAs(Form::kDay, begin), ShownAs(Form::kDay, end), StateOf(*enrolment),
                              AmountOf(enrolment->TeilnehmerKosten())});
    }
    context.Print(row, history);
    context.Note(Counted(sheet.rows.size(), "enrolment"));
}

// list and find

const char* GroupOf(KindOfPerson kind) {
    switch (kind) {
        case KindOfPerson::kApplicant:
            return "BW";
        case KindOfPerson::kWorker:
            return "LA";
        case KindOfPerson::kEmployee:
            break;
    }
    return "AN";
}

// Each word is in one of the names or in the number; a number alone is the key or in the number.
bool IsFoundBy(const PersonRow& person, std::string_view typed) {
    const Text where = person.name + "\n" + person.first_name + "\n" + person.number;
    for (std::size_t at = 0; at < typed.size();) {
        const auto end = std::min(typed.find_first_of(" ,", at), typed.size());
        if (end > at && !TextFilter(typed.substr(at, end - at)).FindsIn(where)) return false;
        at = end + 1;
    }
    return true;
}

struct Wanted {
    std::string text;
    std::string kind;
};

int List(Context& context, const Wanted& wanted) {
    std::vector<KindOfPerson> kinds(std::begin(kKindsOfPersons), std::end(kKindsOfPersons));
    if (!wanted.kind.empty()) kinds = {ReadKind(wanted.kind)};
    Sheet sheet = Head();
    for (const auto kind : kinds) {
        for (const auto& person : PersonsOf(context, kind)) {
            if (!IsFoundBy(person, wanted.text)) continue;
            sheet.rows.push_back({context.Client(), person.key, NameOf(kind), GroupOf(kind), person.number, person.name,
                                  person.first_name});
        }
    }
    context.Print(sheet);
    context.Note(Counted(sheet.rows.size(), "person"));
    return kDone;
}

void AddKindFilter(Command& command, Wanted& wanted) {
    command.Option("--kind", &wanted.kind, "KIND",
                   "Only employees, applicants or (temporary) workers: employee, applicant, worker [all]");
}

constexpr const char* kWordsRemark =
    "A person is found by words in name, first name and number, in any order and capitals. Employees are those of the\n"
    "client; applicants and temporary workers belong to all clients.";

void AddList(Command& persons) {
    auto& command = persons.Add("list", "List persons by name");
    const auto wanted = std::make_shared<Wanted>();
    AddKindFilter(command, *wanted);
    command.Option("--filter", &wanted->text, "TEXT", "Only persons with these words in name or number, in any capitals");
    command.Remark(kWordsRemark);
    command.Does([wanted](Context& context) { return List(context, *wanted); });
}

void AddFind(Command& persons) {
    auto& command = persons.Add("find", "Find persons by a part of name or number");
    const auto wanted = std::make_shared<Wanted>();
    command.Argument("TEXT", &wanted->text, "Parts of name, first name or number, as in Köl or \"Norbert Kölbl\"").Required();
    AddKindFilter(command, *wanted);
    command.Remark(kWordsRemark);
    command.Does([wanted](Context& context) { return List(context, *wanted); });
}

// show

void AddShow(Command& persons) {
    struct Typed {
        std::string person;
        std::string kind;
        bool history = false;
    };
    auto& command = persons.Add("show", "Show a person, with all enrolments if wanted");
    const auto typed = std::make_shared<Typed>();
    TakePerson(command, &typed->person);
    AddKindOption(command, typed->kind);
    command.Flag("--history", typed->history, "Show the enrolments of the person, the earliest first");
    command.Remark(
        "With --history the enrolments come behind the person: in JSON as the array Enrolments in the object, in CSV\n"
        "behind a blank line.");
    command.Does([typed](Context& context) {
        const auto kind = ReadKind(typed->kind);
        const Int32 key = ReadPerson(context, "PERSON", typed->person, kind);
        const auto person = PersonOf(context, key, kind);
        const auto sheet = PersonSheet(*person, kind);
        typed->history ? PrintWithHistory(context, sheet, *person) : context.Print(sheet, Shape::kOneRow);
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
    for (const auto kind : kKindsOfPersons) {
        if (typed == NameOf(kind)) return kind;
    }
    throw UsageError(fmt::format("--kind: {} is none of employee, applicant, worker.", OneLine(typed)));
}

Ref<clsWBPerson> PersonOf(Context& context, Int32 key, KindOfPerson kind) {
    auto person = New<clsWBPerson>();
    Ref<DataSession> session = context.Session();
    person->Init(context.Client(), key, static_cast<Byte>(kind), session);
    if (person->PersNr().empty() && person->Nachname().empty() && person->Vorname().empty()) {
        if (kind == KindOfPerson::kEmployee) RaiseNoSuch(context, NameOf(kind), key);
        Raise(ErrorNumber::kKeyNotFound, fmt::format("There is no {} {}.", NameOf(kind), key));
    }
    return person;
}

void AddPersons(Command& program) {
    auto& persons = program.Add("persons", "Employees, applicants and temporary workers: list, find, show");
    AddList(persons);
    AddFind(persons);
    AddShow(persons);
}

}  // namespace frontend
