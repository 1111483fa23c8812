#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "frontend/asking.h"
#include "frontend/commands/arguments.h"
#include "frontend/commands/checks.h"
#include "frontend/commands/commands.h"
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

Text DayKey(clsTermin& date, DateTime day) { return date.Key() + CompactDateText(day); }

// A time of 0 is midnight here.
void AddRow(Sheet& sheet, clsTerminTag& day) {
    sheet.rows.push_back({day.Termin(), ClockText(day.BegUhr()), ClockText(day.EndUhr())});
}

Sheet Head() { return {{"Termin", "BegUhr", "EndUhr"}, {}}; }

void AddDateOption(Command& command, std::string& date) { TakeDate(command, &date); }

// list

struct ListOptions {
    std::string date;
    bool calendar = false;
    bool weeks = false;
};

int List(Context& context, const ListOptions& options) {
    const Int32 key = ReadInt32("DATE", options.date);
    if (options.calendar && context.options.format != Format::kTable) {
        throw UsageError("The calendar is for people: it has no other format than table.");
    }
    const auto days = DateOf(context, key)->colTerminTage();
    Sheet sheet = Head();
    std::vector<DateTime> marked;
    for (const auto& day : days->NewEnum()) {
        AddRow(sheet, *day);
        marked.push_back(day->Termin());
    }
    context.Print(sheet);
    if (options.calendar) {
        fmt::print("\n");
        PrintMonthCalendar(marked, options.weeks);
    }
    context.Note(Counted(sheet.rows.size(), "day"));
    return kDone;
}

void AddList(Command& days) {
    auto& command = days.Add("list", "List the days of a date with their times");
    const auto options = std::make_shared<ListOptions>();
    AddDateOption(command, options->date);
    command.Flag("--calendar", options->calendar, "Show a calendar below the list");
    command.Flag("--weeks", options->weeks, "Show the numbers of the weeks in the calendar").Needs("--calendar");
    command.Does([options](Context& context) { return List(context, *options); });
}

// add

struct AddOptions {
    std::string date;
    std::string day;
    std::string from;
    std::string to;
};

// Of the times of the date, 0 is one that is not set.
void CheckTimes(clsTermin& date, const AddOptions& options, DateTime from, DateTime to) {
    if (options.from.empty() && options.to.empty()) return;
    const auto from_of_date = date.BeginnUhrzeit();
    const auto to_of_date = date.EndeUhrzeit();
    if ((options.from.empty() && !from_of_date) || (options.to.empty() && !to_of_date)) return;
    RefuseClockBefore(
        {options.from.empty() ? "BeginnUhrzeit of the date" : "--from", options.from.empty() ? from_of_date : from},
        {options.to.empty() ? "EndeUhrzeit of the date" : "--to", options.to.empty() ? to_of_date : to});
}

int Add(Context& context, const AddOptions& options) {
    const Int32 key = ReadInt32("DATE", options.date);
    const auto day = ReadDay("DAY", options.day);
    const auto from = options.from.empty() ? DateTime() : ReadClock("--from", options.from);
    const auto to = options.to.empty() ? DateTime() : ReadClock("--to", options.to);
    const auto date = DateOf(context, key);
    CheckTimes(*date, options, from, to);
    date->colTerminTage()->NewTerminTag(day, options.from.empty() ? date->BeginnUhrzeit() : from,
                                        options.to.empty() ? date->EndeUhrzeit() : to);
    Sheet sheet = Head();
    AddRow(sheet, *date->colTerminTage()->Item(DayKey(*date, day)));
    context.Print(sheet, Shape::kOneRow);
    return kDone;
}

void AddAdd(Command& days) {
    auto& command = days.Add("add", "Add a day to a date and show it as it is stored");
    const auto options = std::make_shared<AddOptions>();
    AddDateOption(command, options->date);
    command.Argument("DAY", &options->day, "The day, as 1.3.2027, today or +7d").Required();
    command.Option("--from", &options->from, "TIME", "Time at which it starts, as 9:00 [that of the date]");
    command.Option("--to", &options->to, "TIME", "Time at which it ends [that of the date]");
    command.Remark(
        "First and last day of the date stay as they are. The next save of the date gives all its days the times of\n"
        "the date.");
    command.Writes();
    command.Does([options](Context& context) { return Add(context, *options); });
}

// remove

int Remove(Context& context, Int32 key, const std::vector<DateTime>& wanted) {
    const auto date = DateOf(context, key);
    const auto days = date->colTerminTage();
    // Every day is looked up before anything is removed.
    for (const auto day : wanted) {
        if (days->Item(DayKey(*date, day))) continue;
        Raise(ErrorNumber::kKeyNotFound, fmt::format("Date {} does not take place on {}.", key, DateText(day)));
    }
    const auto MayRemove = [&] {
        const auto left = static_cast<std::size_t>(days->Count()) - wanted.size();
        return Question{fmt::format("Date {}, {}: {} of its {} stay.\n", key, Visible(date->Titel(false)), left,
                                    Counted(left + wanted.size(), "day")),
                        fmt::format("Remove {}?", Counted(wanted.size(), "day")), "Nothing was removed."};
    };
    if (!IsAgreedOrYes(context, MayRemove)) return kRefused;
    Sheet sheet{{"Termin", "Outcome"}, {}};
    try {
        for (const auto day : wanted) {
            days->Remove(DayKey(*date, day));
            sheet.rows.push_back({day, "removed"});
        }
    } catch (...) {
        context.Print(sheet);
        throw;
    }
    context.Print(sheet);
    context.Note(Counted(static_cast<std::size_t>(days->Count()), "day") + " left");
    return kDone;
}

void AddRemove(Command& days) {
    struct Typed {
        std::string date;
        std::vector<std::string> days;
    };
    auto& command = days.Add("remove", "Remove days of a date; none where the date has not all of them");
    const auto typed = std::make_shared<Typed>();
    AddDateOption(command, typed->date);
    command.Argument("DAY", &typed->days, "Each day, as 1.3.2027, today or +7d").Required();
    command.Remark("First and last day of the date stay as they are.");
    command.Asks();
    command.Writes();
    command.Does([typed](Context& context) {
        const Int32 key = ReadInt32("DATE", typed->date);
        std::vector<DateTime> wanted;
        for (const auto& text : typed->days) {
            const auto day = ReadDay("DAY", text);
            if (std::ranges::find(wanted, day) == wanted.end()) wanted.push_back(day);
        }
        return Remove(context, key, wanted);
    });
}

}  // namespace

void AddDays(Command& program) {
    auto& days = program.Add("days", "The single days of a date: list, add, remove");
    AddList(days);
    AddAdd(days);
    AddRemove(days);
}

}  // namespace frontend
