#include <fmt/format.h>

#include <memory>

#include "frontend/asking.h"
#include "frontend/commands/checks.h"
#include "frontend/commands/commands.h"
#include "frontend/commands/lists.h"
#include "frontend/commands/seminar_columns.h"
#include "frontend/context.h"
#include "frontend/exit_codes.h"
#include "frontend/output/counted.h"
#include "frontend/output/screen_text.h"
#include "frontend/read_value.h"
#include "frontend/text_filter.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

void Show(Context& context, clsSeminar& seminar) {
    Sheet sheet = SeminarColumns().Head(Extent::kAll);
    SeminarColumns().AddRow(sheet, seminar, Extent::kAll);
    context.Print(sheet, Shape::kOneRow);
}

using SeminarChanges = std::vector<Change<clsSeminar>>;

// Reads the row anew: what is stored can differ from what was let.
void ShowStored(Context& context, Int32 key) {
    const auto seminar = New<clsSeminar>();
    seminar->Init(key, context.Session());
    Show(context, *seminar);
}

// list

struct ListOptions {
    bool all_columns = false;
    std::string filter;
};

int List(Context& context, const ListOptions& options) {
    const auto list = SeminarsOf(context);
    const TextFilter filter(options.filter);
    const Extent extent = options.all_columns ? Extent::kAll : Extent::kShort;
    Sheet sheet = SeminarColumns().Head(extent);
    for (const auto& seminar : list->NewEnum()) {
        if (!filter.FindsIn(seminar->SemTitel()) && !filter.FindsIn(seminar->SemCode())) continue;
        SeminarColumns().AddRow(sheet, *seminar, extent);
    }
    context.Print(sheet);
    const std::size_t shown = sheet.rows.size();
    context.Note(filter.IsEmpty() ? Counted(shown, "seminar") : fmt::format("{} of {} seminars", shown, list->Count()));
    return kDone;
}

void AddList(Command& seminars) {
    auto& command = seminars.Add("list", "List the seminars of the client and those common to all");
    const auto options = std::make_shared<ListOptions>();
    command.Flag("--all-columns", options->all_columns, "All columns in place of the most wanted");
    command.Option("--filter", &options->filter, "TEXT", "Only seminars with this text in title or code, in any capitals");
    command.Does([options](Context& context) { return List(context, *options); });
}

// show

void AddShow(Command& seminars) {
    auto& command = seminars.Add("show", "Show all columns of one seminar");
    const auto key = std::make_shared<std::string>();
    command.Argument("KEY", key.get(), "SemID of the seminar").Required().Naming(Names::kSeminar);
    command.Does([key](Context& context) {
        const Int32 number = ReadInt32("KEY", *key);
        Show(context, *SeminarOf(context, number));
        return kDone;
    });
}

// What is looked at before a seminar is written, once the changes are in it.
void CheckChanged(Context& context, clsSeminar& seminar, const SeminarChanges& changes) {
    RequireRows(context, changes);
    if (!ChangesAny(changes, {"TeilnehmerMIN", "TeilnehmerMAX"})) return;
    // A new seminar gives none of what was let.
    const auto min = TypedFor(changes, "TeilnehmerMIN");
    const auto max = TypedFor(changes, "TeilnehmerMAX");
    RefuseAbove({"TeilnehmerMIN", min ? To<Int32>(*min) : seminar.TeilnehmerMIN()},
                {"TeilnehmerMAX", max ? To<Int32>(*max) : seminar.TeilnehmerMAX()});
}

// add

int Add(Context& context, const SeminarChanges& changes) {
    const auto seminar = New<clsSeminar>();
    seminar->Init(0, context.Session());
    seminar->MDNR(context.Client());
    LetAll(*seminar, changes);
    CheckChanged(context, *seminar, changes);
    seminar->WriteToDatabase();
    ShowStored(context, seminar->SemID());
    return kDone;
}

void AddAdd(Command& seminars) {
    auto& command = seminars.Add("add", "Add a seminar and show it as it is stored");
    const auto values = SeminarColumns().AddOptions(command);
    command.OptionNamed("--title").Required();
    command.Remark("The key is the greatest one plus 1. Without --mdnr the seminar belongs to the client.");
    command.Writes();
    command.Does([values](Context& context) { return Add(context, SeminarColumns().ReadChanges(*values, {})); });
}

// set

int Set(Context& context, Int32 key, const SeminarChanges& changes) {
    if (changes.empty()) throw UsageError("Nothing to set: name a column and its value.");
    const auto seminar = SeminarOf(context, key);
    // The row is read before anything is let, so that the load does not take the changes away again.
    SeminarColumns().LetTextsAgain(*seminar);
    LetAll(*seminar, changes);
    CheckChanged(context, *seminar, changes);
    if (!seminar->UpdateDatabase()) {
        fmt::print(stderr, "lumoseminar: Seminar {} is no longer there; nothing was changed.\n", key);
        return kRefused;
    }
    ShowStored(context, key);
    return kDone;
}

void AddSet(Command& seminars) {
    struct Typed {
        std::string key;
        std::vector<std::string> pairs;
    };
    auto& command = seminars.Add("set", "Change columns of a seminar and show it as it is stored");
    const auto typed = std::make_shared<Typed>();
    command.Argument("KEY", &typed->key, "SemID of the seminar").Required().Naming(Names::kSeminar);
    command.Argument("CHANGES", &typed->pairs, "column=value, as in SemTitel=\"Erste Hilfe\" KostenProTN=49.90");
    const auto values = SeminarColumns().AddOptions(command);
    command.Writes();
    command.Does([typed, values](Context& context) {
        const Int32 key = ReadInt32("KEY", typed->key);
        return Set(context, key, SeminarColumns().ReadChanges(*values, typed->pairs));
    });
}

// remove

// Asks only the list of dates that the removal has read. It is empty where the row could not be read.
const char* WhyKept(clsSeminar& seminar) {
    const auto dates = seminar.colTermine();
    return dates && dates->Count() != 0 ? "has dates" : "no longer there";
}

// Asked of objects of their own: those that are removed are to read what goes with them when they go.
std::string WhatGoes(Context& context, Int32 key) {
    const auto seminar = SeminarOf(context, key);
    const auto dates = static_cast<std::size_t>(seminar->colTermine()->Count());
    auto text = fmt::format("Seminar {}, {}:", key, Visible(seminar->SemTitel()));
    if (dates != 0) return text + fmt::format(" it has {} and stays.\n", Counted(dates, "date"));
    const auto areas = New<colSemSchwerpunkte>();
    if (!areas->Init(key, context.Session())) RaiseRefused(context.Session()->LastErrorText());
    const auto interest = New<colSemWarteliste>();
    interest->LoadListSeminar(context.Session(), key);
    const auto left = SentenceOn({{static_cast<std::size_t>(areas->Count()), "focus area"},
                                  {static_cast<std::size_t>(interest->Count()), "request of interest"}},
                                 "stays behind", "stay behind");
    return text + (left.empty() ? " nothing else goes with it." : left) + '\n';
}

Question MayRemove(Context& context, const std::vector<Int32>& keys) {
    Question question{"", fmt::format("Remove {}?", Counted(keys.size(), "seminar")), "Nothing was removed."};
    for (const Int32 key : keys) question.facts += WhatGoes(context, key);
    return question;
}

int Remove(Context& context, const std::vector<Int32>& keys) {
    const auto list = SeminarsOf(context);
    // Every key is looked up before anything is removed. Reading the title reads the row: only then Remove deletes it.
    std::vector<Text> titles;
    titles.reserve(keys.size());
    for (const Int32 key : keys) titles.push_back(SeminarIn(context, *list, key)->SemTitel());
    if (!IsAgreedOrYes(context, [&] { return MayRemove(context, keys); })) return kRefused;
    Sheet sheet{{SeminarColumns().key_name, "SemTitel", "Outcome"}, {}};
    int code = kDone;
    try {
        for (std::size_t i = 0; i < keys.size(); ++i) {
            const Int32 before = list->Count();
            list->Remove(KeyText(keys[i]));
            const bool removed = list->Count() == before - 1;
            if (!removed) code = kRefused;
            sheet.rows.push_back({keys[i], titles[i], removed ? "removed" : WhyKept(*list->Item(KeyText(keys[i])))});
        }
    } catch (...) {
        context.Print(sheet);
        throw;
    }
    context.Print(sheet);
    return code;
}

void AddRemove(Command& seminars) {
    auto& command = seminars.Add("remove", "Remove seminars; none where one of the keys is unknown");
    command.Remark("A seminar that has dates stays.");
    const auto typed = std::make_shared<std::vector<std::string>>();
    command.Argument("KEY", typed.get(), "SemID of each seminar").Required().Naming(Names::kSeminar);
    command.Asks();
    command.Writes();
    command.Does([typed](Context& context) { return Remove(context, ReadKeys("KEY", *typed)); });
}

}  // namespace

void AddSeminars(Command& program) {
    auto& seminars = program.Add("seminars", "The seminar catalogue: list, show, add, set, remove");
    AddList(seminars);
    AddShow(seminars);
    AddAdd(seminars);
    AddSet(seminars);
    AddRemove(seminars);
}

}  // namespace frontend
