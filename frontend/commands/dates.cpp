#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "frontend/asking.h"
#include "frontend/commands/checks.h"
#include "frontend/commands/commands.h"
#include "frontend/commands/date_columns.h"
#include "frontend/commands/date_list.h"
#include "frontend/commands/lists.h"
#include "frontend/context.h"
#include "frontend/exit_codes.h"
#include "frontend/output/counted.h"
#include "frontend/output/month_calendar.h"
#include "frontend/output/screen_text.h"
#include "frontend/read_value.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

using DateChange = Change<clsTermin>;
using DateChanges = std::vector<DateChange>;

// show

struct Shown {
    Ref<clsTermin> date;
    std::vector<DateTime> days;
};

void PrintDate(const Context& context, const Shown& shown) {
    Sheet sheet = DateColumns().Head(Extent::kAll);
    DateColumns().AddRow(sheet, *shown.date, Extent::kAll);
    const auto AddValue = [&](const char* name, Variant value) {
        sheet.columns.emplace_back(name);
        sheet.rows.front().push_back(std::move(value));
    };
    AddValue("StatusBezLang", shown.date->StatusBezLang());
    AddValue("Veranstalter", shown.date->Veranstalter()->Name());
    AddValue("VeranstaltungsOrt", shown.date->VeranstaltungsOrt()->Name());
    AddValue("Days", To<Int32>(shown.days.size()));
    context.Print(sheet, Shape::kOneRow);
}

void PrintCalendar(const Context& context, const std::vector<DateTime>& days, bool weeks) {
    if (!context.IsForPeople()) return;
    fmt::print("\n");
    PrintMonthCalendar(days, weeks);
}

void Show(const Context& context, const Ref<clsTermin>& date, bool weeks) {
    const Shown shown{date, DaysOf(*date)};
    PrintDate(context, shown);
    PrintCalendar(context, shown.days, weeks);
}

// The date read anew: what is stored can differ from what was let.
Ref<clsTermin> Stored(Context& context, Int32 key) {
    auto date = New<clsTermin>();
    date->Init(key, context.Session());
    return date;
}

void AddShow(Command& dates) {
    struct Typed {
        std::string key;
        bool weeks = false;
    };
    auto& command = dates.Add("show", "Show all columns of one date, its organiser, its venue and its days");
    const auto typed = std::make_shared<Typed>();
    command.Argument("KEY", &typed->key, "SemTerminID of the date").Required().Naming(Names::kDate);
    command.Flag("--weeks", typed->weeks, "Show the numbers of the weeks in the calendar");
    command.Does([typed](Context& context) {
        Show(context, DateOf(context, ReadInt32("KEY", typed->key)), typed->weeks);
        return kDone;
    });
}

// What add and set have in common

bool IsOf(const DateChange& change, std::string_view column) { return change.column->name == column; }

// The seminar comes first, as its let may copy; the first and the last day come behind all that the days are made from.
int Turn(const DateChange& change) {
    if (IsOf(change, "SemID")) return 0;
    if (IsOf(change, "BeginnDatum")) return 2;
    if (IsOf(change, "EndeDatum")) return 3;
    return 1;
}

bool MakesDays(const DateChange& change) { return Turn(change) >= 2; }

// In the order in which they are to be let.
DateChanges ReadDateChanges(const TypedValues& values, const std::vector<std::string>& pairs) {
    auto changes = DateColumns().ReadChanges(values, pairs);
    std::ranges::stable_sort(changes, {}, Turn);
    return changes;
}

void LetRow(clsTermin& date, const DateChanges& changes) {
    for (const auto& change : changes) {
        if (IsOf(change, "SemID")) change.LetInto(date);
    }
    // The title of the seminar is among the texts by now.
    DateColumns().LetTextsAgain(date);
    for (const auto& change : changes) {
        if (!IsOf(change, "SemID") && !MakesDays(change)) change.LetInto(date);
    }
}

// Where the days are made anew, those of a date with a series have its times.
void CheckTimes(clsTermin& date, const DateChanges& changes) {
    auto begin = date.BeginnUhrzeit();
    auto end = date.EndeUhrzeit();
    if (std::ranges::any_of(changes, MakesDays) && date.SerienID() != 0) {
        const auto series = date.objSerie();
        if (!ChangesAny(changes, {"BeginnUhrzeit"})) begin = series->BeginnUhrzeit();
        if (!ChangesAny(changes, {"EndeUhrzeit"})) end = series->EndeUhrzeit();
    }
    if (begin && end) RefuseClockBefore({"BeginnUhrzeit", begin}, {"EndeUhrzeit", end});
}

// What is looked at before a date is written, once the changes of its row are in it.
void CheckChanged(clsTermin& date, const DateChanges& changes) {
    if (ChangesAny(changes, {"MinTeil", "MaxTeil"})) {
        RefuseAbove({"MinTeil", date.MinTeil()}, {"MaxTeil", date.MaxTeil()});
    }
    if (ChangesAny(changes, {"BeginnUhrzeit", "EndeUhrzeit"})) CheckTimes(date, changes);
}

void RefuseEndBeforeBegin(clsTermin& date, const DateChanges& changes) {
    DateTime begin = date.BeginnDatum();
    for (const auto& change : changes) {
        if (IsOf(change, "BeginnDatum")) begin = To<DateTime>(change.value);
        if (IsOf(change, "EndeDatum") && !begin && To<DateTime>(change.value)) {
            throw UsageError("EndeDatum needs a BeginnDatum: the days go from the one to the other.");
        }
        if (!IsOf(change, "EndeDatum") || To<DateTime>(change.value) >= begin) continue;
        throw UsageError("EndeDatum must not lie before BeginnDatum: no day would be left.");
    }
}

// Of a date with a series the times are now those of the series, so the ones typed are let once more.
void LetDays(clsTermin& date, const DateChanges& changes) {
    for (const auto& change : changes) {
        if (MakesDays(change)) change.LetInto(date);
    }
    for (const auto& change : changes) {
        if (IsOf(change, "BeginnUhrzeit") || IsOf(change, "EndeUhrzeit")) change.LetInto(date);
    }
}

void Write(Context& context, clsTermin& date) {
    if (!date.WriteToDatabase()) RaiseRefused(context.Session()->LastErrorText());
}

// add

int Add(Context& context, const DateChanges& changes) {
    // A seminar that is not there would be copied as an empty one.
    SeminarOf(context, To<Int32>(changes.front().value));
    const auto date = New<clsTermin>();
    date->Init(0, context.Session());
    RefuseEndBeforeBegin(*date, changes);
    RequireRows(context, changes);
    LetRow(*date, changes);
    CheckChanged(*date, changes);
    // The let of the first day inserts the days at once, under the key that the date has at that moment, and nothing
    // ever moves them to another key. So the date is written first, which gives it its key; then its days are made; and
    // then it is written again, as the end and the times that the days have brought are only in the object.
    Write(context, *date);
    if (std::ranges::any_of(changes, MakesDays)) {
        try {
            LetDays(*date, changes);
            Write(context, *date);
        } catch (...) {
            fmt::print(stderr, "lumoseminar: Date {} was added, but not with all its days.\n", date->SemTerminID());
            throw;
        }
    }
    Show(context, Stored(context, date->SemTerminID()), false);
    return kDone;
}

void AddAdd(Command& dates) {
    auto& command = dates.Add("add", "Add a date of a seminar, make its days, and show it as it is stored");
    const auto values = DateColumns().AddOptions(command);
    command.OptionNamed("--seminar").Required();
    command.Remark(
        "The key is the greatest one plus 1. Client, title, content, clerk, limits, hours, sessions, series and costs\n"
        "come from the seminar where they are not typed. From --begin on there is a day for each session: by the\n"
        "series, otherwise one day after the other. Without --begin the date stays open.");
    command.Writes();
    command.Does([values](Context& context) { return Add(context, ReadDateChanges(*values, {})); });
}

// set

void TellDaysOfUnsavedDate(Int32 key, std::size_t before, std::size_t after) {
    fmt::print(stderr, "lumoseminar: Date {} was not saved, but its days were changed: {} before, {} now.\n", key,
               before, after);
}

int Set(Context& context, Int32 key, const DateChanges& changes) {
    if (changes.empty()) throw UsageError("Nothing to set: name a column and its value.");
    const auto date = DateOf(context, key);
    // Nearly all lets read the row before they store; that of Sitzungen does not. This reads it in any case.
    RefuseEndBeforeBegin(*date, changes);
    RequireRows(context, changes);
    const auto before = DaysOf(*date);
    try {
        LetRow(*date, changes);
        CheckChanged(*date, changes);
        LetDays(*date, changes);
        Write(context, *date);
    } catch (...) {
        const auto now = DaysOf(*date);
        if (now != before) TellDaysOfUnsavedDate(key, before.size(), now.size());
        throw;
    }
    const auto stored = Stored(context, key);
    const Shown shown{stored, DaysOf(*stored)};
    PrintDate(context, shown);
    if (context.IsForPeople() && shown.days != before) {
        fmt::print("\nBefore: {}\n", Counted(before.size(), "day"));
        PrintCalendar(context, before, false);
        fmt::print("\nNow: {}\n", Counted(shown.days.size(), "day"));
        PrintCalendar(context, shown.days, false);
    }
    return kDone;
}

void AddSet(Command& dates) {
    struct Typed {
        std::string key;
        std::vector<std::string> pairs;
    };
    auto& command = dates.Add("set", "Change columns of a date, and its days with them, and show it as it is stored");
    const auto typed = std::make_shared<Typed>();
    command.Argument("KEY", &typed->key, "SemTerminID of the date").Required().Naming(Names::kDate);
    command.Argument("CHANGES", &typed->pairs, "column=value, as in Titel=\"Erste Hilfe\" BeginnDatum=03.03.2010");
    const auto values = DateColumns().AddOptions(command);
    command.Remark(
        "Another BeginnDatum deletes all days and makes as many as there are Sitzungen, by the series, otherwise one\n"
        "day after the other. Another EndeDatum adds days behind the last one or deletes those behind it. Every save\n"
        "gives all days the times of the date. A day or a time is taken away by typing none, as in StornoDatum=.");
    command.Writes();
    command.Does([typed, values](Context& context) {
        const Int32 key = ReadInt32("KEY", typed->key);
        return Set(context, key, ReadDateChanges(*values, typed->pairs));
    });
}

// remove

bool IsUsedOnce(Context& context, Int32 series) {
    const auto where = fmt::format("SerienID = {}", series);
    const auto Uses = [&](const char* table) {
        const auto count = context.Session()->LookupValue("count(*)", table, where);
        return count.IsNull() ? 0 : To<Int32>(count);
    };
    return series != 0 && Uses("Sem_Termin_IT") + Uses("Sem_Katalog_IT") == 1;
}

// Asked of objects of their own: those that are removed are to read what goes with them when they go.
std::string WhatGoes(Context& context, Int32 key) {
    const auto date = DateOf(context, key);
    const auto text = fmt::format("Date {}, {}:", key, Visible(date->Titel(false)));
    const auto gone = SentenceOn({{static_cast<std::size_t>(date->clscolTeilnehmer()->Count()), "participant"},
                                  {static_cast<std::size_t>(date->clscolSemTerminSchwerpunkte()->Count()), "focus area"},
                                  {IsUsedOnce(context, date->SerienID()) ? std::size_t{1} : 0, "rule of recurrence"}},
                                 "goes with it", "go with it");
    const auto left =
        SentenceOn({{DaysOf(*date).size(), "day"}, {static_cast<std::size_t>(date->colWarteliste()->Count()), "request"}},
                   "stays behind", "stay behind");
    return text + (gone.empty() ? " nothing else goes with it." : gone) + left + '\n';
}

Question MayRemove(Context& context, const std::vector<Int32>& keys) {
    Question question{"", fmt::format("Remove {}?", Counted(keys.size(), "date")), "Nothing was removed."};
    for (const Int32 key : keys) question.facts += WhatGoes(context, key);
    return question;
}

int Remove(Context& context, const std::vector<Int32>& keys) {
    const auto list = DatesOf(context);
    // Every key is looked up before anything is removed.
    for (const Int32 key : keys) {
        if (!list->Item(KeyText(key))) RaiseNoSuch(context, "date", key);
    }
    if (!IsAgreedOrYes(context, [&] { return MayRemove(context, keys); })) return kRefused;
    Sheet sheet{{DateColumns().key_name, "Titel", "Outcome", "DaysLeft"}, {}};
    const auto PrintSoFar = [&] {
        context.Print(sheet);
        for (const auto& row : sheet.rows) {
            const auto days = To<std::size_t>(To<Int32>(row.back()));
            if (days == 0) continue;
            context.Note(fmt::format("{} of date {} stay behind in Sem_Termin_Termine_IT.", Counted(days, "day"),
                                     To<Int32>(row.front())));
        }
    };
    try {
        for (const Int32 key : keys) {
            const auto date = list->Item(KeyText(key));
            const Text title = date->Titel(false);
            const auto Tell = [&](const char* outcome) {
                sheet.rows.push_back({key, title, outcome, To<Int32>(DaysOf(*date).size())});
            };
            try {
                if (!list->Remove(KeyText(key))) RaiseRefused(context.Session()->LastErrorText());
            } catch (...) {
                if (!HasDate(context, key)) Tell("removed, its series not");
                throw;
            }
            Tell("removed");
        }
    } catch (...) {
        PrintSoFar();
        throw;
    }
    PrintSoFar();
    return kDone;
}

void AddRemove(Command& dates) {
    auto& command = dates.Add("remove", "Remove dates; none where one of the keys is unknown");
    const auto typed = std::make_shared<std::vector<std::string>>();
    command.Argument("KEY", typed.get(), "SemTerminID of each date").Required().Naming(Names::kDate);
    command.Remark(
        "Its participants and focus areas go with a date, and its series where no other date and no seminar uses it.\n"
        "Its days stay behind: remove them first with \"lumoseminar days remove\". A new date that gets the same key\n"
        "has them as its own.");
    command.Asks();
    command.Writes();
    command.Does([typed](Context& context) { return Remove(context, ReadKeys("KEY", *typed)); });
}

}  // namespace

void AddDates(Command& program) {
    auto& dates = program.Add("dates", "The dates of the seminars: list, show, add, set, remove");
    AddDateList(dates);
    AddShow(dates);
    AddAdd(dates);
    AddSet(dates);
    AddRemove(dates);
}

}  // namespace frontend
