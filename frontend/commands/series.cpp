#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frontend/commands/checks.h"
#include "frontend/commands/columns.h"
#include "frontend/commands/commands.h"
#include "frontend/context.h"
#include "frontend/exit_codes.h"
#include "frontend/read_value.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

using Col = Column<clsSerie>;
using Small = Col::Of<Byte>;
using Flag = Col::Truth;

// The first of them loads, so that those behind it that do not are read, too.
constexpr Col kColumns[] = {
    {"BeginnUhrzeit", "begin", "", Col::Clock{&clsSerie::BeginnUhrzeit, &clsSerie::BeginnUhrzeit}, true},
    {"EndeUhrzeit", "end", "", Col::Clock{&clsSerie::EndeUhrzeit, &clsSerie::EndeUhrzeit}, true},
    {"Tagefolge", "", "", Small{&clsSerie::Tagefolge, &clsSerie::Tagefolge}},
    {"taeglich", "", "", Small{&clsSerie::Taeglich, &clsSerie::Taeglich}},
    {"Woche", "", "", Col::Of<Int32>{&clsSerie::Woche, &clsSerie::Woche}},
    {"Mo", "", "", Flag{&clsSerie::Montag, &clsSerie::Montag}},
    {"Di", "", "", Flag{&clsSerie::Dienstag, &clsSerie::Dienstag}},
    {"Mi", "", "", Flag{&clsSerie::Mittwoch, &clsSerie::Mittwoch}},
    {"Do", "", "", Flag{&clsSerie::Donnerstag, &clsSerie::Donnerstag}},
    {"Fr", "", "", Flag{&clsSerie::Freitag, &clsSerie::Freitag}},
    {"Sa", "", "", Flag{&clsSerie::Samstag, &clsSerie::Samstag}},
    {"So", "", "", Flag{&clsSerie::Sonntag, &clsSerie::Sonntag}},
};

constexpr ColumnTable<clsSerie> kTable{"series", "SerienID", &clsSerie::SerienID, kColumns};
constexpr std::span<const Col> kWeekdays = std::span(kColumns).last(7);

constexpr Byte kDailyRhythm = 1;
constexpr Byte kWeeklyRhythm = 2;
constexpr Byte kEveryDay = 1;
constexpr Int16 kFlagged = -1;

Text InWords(clsSerie& series) {
    if (series.Tagefolge() == kDailyRhythm) {
        return series.Taeglich() == kEveryDay ? "every day" : "every working day, Monday to Friday";
    }
    const Int32 weeks = series.Woche();
    Text words = weeks == 1 ? "every week" : fmt::format("every {} weeks", weeks);
    const char* before = " on ";
    for (const auto& weekday : kWeekdays) {
        if (const auto flag = weekday.Get(series); !flag.Is<Bool>() || !To<Bool>(flag)) continue;
        words += before;
        words += weekday.name;
        before = ", ";
    }
    return *before == ' ' ? words + " on no day" : words;
}

Sheet Head(Extent extent) {
    Sheet sheet = kTable.Head(extent);
    sheet.columns.emplace_back("Rule");
    return sheet;
}

void AddRow(Sheet& sheet, clsSerie& series, Extent extent) {
    kTable.AddRow(sheet, series, extent);
    sheet.rows.back().emplace_back(InWords(series));
}

Ref<clsSerie> SeriesOf(Context& context, Int32 key) {
    auto series = New<clsSerie>();
    series->Init(key, context.Session());
    return series;
}

void Show(Context& context, Int32 key) {
    Sheet sheet = Head(Extent::kAll);
    AddRow(sheet, *SeriesOf(context, key), Extent::kAll);
    context.Print(sheet, Shape::kOneRow);
}

// list

// The list of the library is never filled, so the keys are selected here.
std::vector<Int32> Keys(Context& context) {
    const auto& session = context.Session();
    if (!session->OpenSelect("SELECT SerienID FROM Sem_Serien_IT ORDER BY SerienID"))
        RaiseRefused(session->LastErrorText());
    std::vector<Int32> keys;
    const auto rows = session->Recordset();
    for (; !rows->Eof(); rows->MoveNext()) keys.push_back(To<Int32>(rows->Fields().Item(0).Value()));
    rows->Close();
    return keys;
}

int List(Context& context) {
    Sheet sheet = Head(Extent::kShort);
    for (const Int32 key : Keys(context)) AddRow(sheet, *SeriesOf(context, key), Extent::kShort);
    context.Print(sheet);
    context.Note(fmt::format("{} series", sheet.rows.size()));
    return kDone;
}

void AddList(Command& series) {
    auto& command = series.Add("list", "List the series with their rules in words");
    command.Does([](Context& context) { return List(context); });
}

// show

void AddShow(Command& series) {
    auto& command = series.Add("show", "Show all columns of one series, and its rule in words");
    const auto typed = std::make_shared<std::string>();
    command.Argument("KEY", typed.get(), "SerienID of the series").Required().Naming(Names::kSeries);
    command.Does([typed](Context& context) {
        const Int32 key = ReadInt32("KEY", *typed);
        const auto keys = Keys(context);
        if (std::ranges::find(keys, key) == keys.end()) {
            Raise(ErrorNumber::kKeyNotFound, fmt::format("There is no series {}.", key));
        }
        Show(context, key);
        return kDone;
    });
}

// add

struct AddOptions {
    std::string begin;
    std::string end;
    bool daily = false;
    bool workdays = false;
    std::optional<std::string> weeks;
    std::optional<std::string> on;
};

void LetWeekdays(clsSerie& series, std::string_view typed) {
    for (std::size_t at = 0; at <= typed.size();) {
        const auto end = std::min(typed.find(',', at), typed.size());
        auto name = typed.substr(at, end - at);
        name.remove_prefix(std::min(name.find_first_not_of(' '), name.size()));
        const auto weekday = WeekdayOf(name);
        if (!weekday) throw UsageError(fmt::format("--on: {} is none of Mo, Di, Mi, Do, Fr, Sa, So.", OneLine(name)));
        Change<clsSerie>{&kWeekdays[To<std::size_t>(Int32{*weekday})], kFlagged}.LetInto(series);
        at = end + 1;
    }
}

void LetWeeks(clsSerie& series, const std::string& weeks, const std::optional<std::string>& on) {
    const Int32 number = ReadInt32("--weekly", weeks);
    if (number < 1) throw UsageError("--weekly: every how many weeks; 1 or more.");
    if (!on) throw UsageError("--weekly needs --on: on which weekdays.");
    series.Tagefolge(kWeeklyRhythm);
    series.Woche(number);
    LetWeekdays(series, *on);
}

int Add(Context& context, const AddOptions& options) {
    if (options.daily + options.workdays + options.weeks.has_value() != 1) {
        throw UsageError("Give one of --daily, --workdays and --weekly N.");
    }
    if (options.on && !options.weeks) throw UsageError("--on goes with --weekly only.");
    const auto begin = ReadClock("--begin", options.begin);
    const auto end = ReadClock("--end", options.end);
    RefuseClockBefore({"--begin", begin}, {"--end", end});
    const auto series = New<clsSerie>();
    series->BeginnUhrzeit(begin);
    series->EndeUhrzeit(end);
    if (options.weeks) {
        LetWeeks(*series, *options.weeks, options.on);
    } else {
        series->Tagefolge(kDailyRhythm);
        series->Taeglich(options.daily ? kEveryDay : Byte{0});
    }
    series->Init(0, context.Session());
    series->WriteToDatabase();
    Show(context, series->SerienID());
    return kDone;
}

void AddAdd(Command& series) {
    auto& command = series.Add("add", "Add a series and show it as it is stored");
    const auto options = std::make_shared<AddOptions>();
    command.Option("--begin", &options->begin, "TIME", "Time at which each session starts, as 9:00").Required();
    command.Option("--end", &options->end, "TIME", "Time at which each session ends").Required();
    command.Flag("--daily", options->daily, "Every day");
    command.Flag("--workdays", options->workdays, "Every day from Monday to Friday");
    command.Option("--weekly", &options->weeks, "N", "Every how many weeks; needs --on");
    command.Option("--on", &options->on, "DAYS", "On which weekdays, as Mo,Do: Mo, Di, Mi, Do, Fr, Sa, So");
    command.Remark("The key is the greatest one plus 1. A series cannot be changed: add another one.");
    command.Writes();
    command.Does([options](Context& context) { return Add(context, *options); });
}

}  // namespace

void AddSeries(Command& program) {
    auto& series = program.Add("series", "The recurrence series of seminars and dates: list, show, add");
    AddList(series);
    AddShow(series);
    AddAdd(series);
}

}  // namespace frontend
