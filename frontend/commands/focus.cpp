#include <fmt/format.h>

#include <cstdio>
#include <memory>
#include <optional>
#include <string>

#include "frontend/commands/arguments.h"
#include "frontend/commands/commands.h"
#include "frontend/commands/lists.h"
#include "frontend/commands/look_ups.h"
#include "frontend/context.h"
#include "frontend/exit_codes.h"
#include "frontend/output/counted.h"
#include "frontend/read_value.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

Sheet Head() { return {{"SchwerpunktID", "WBS"}, {}}; }

// A list of a seminar or of a date.
template <class List>
Ref<List> AreasOf(Context& context, Int32 key) {
    auto list = New<List>();
    if (!list->Init(key, context.Session())) RaiseRefused(context.Session()->LastErrorText());
    return list;
}

template <class List>
void Print(const Context& context, List& list, const char* remark = "") {
    Sheet sheet = Head();
    for (const auto& area : list.NewEnum()) sheet.rows.push_back({area->SchwerpunktID(), area->WBS()});
    context.Print(sheet);
    context.Note(Counted(sheet.rows.size(), "focus area") + remark);
}

// list

struct ListOptions {
    std::optional<std::string> seminar;
    std::optional<std::string> date;
};

int List(Context& context, const ListOptions& options) {
    if (options.seminar && options.date) throw UsageError("Give one of --seminar N and --date N, or none of them.");
    if (!options.seminar && !options.date) {
        const auto areas = FocusAreas(context);
        context.Print(areas);
        context.Note(Counted(areas.rows.size(), "focus area"));
        return kDone;
    }
    if (options.date) {
        const Int32 key = ReadInt32("--date", *options.date);
        DateOf(context, key);
        Print(context, *AreasOf<colSemTerminSchwerpunkte>(context, key));
    } else {
        const Int32 key = ReadInt32("--seminar", *options.seminar);
        SeminarOf(context, key);
        Print(context, *AreasOf<colSemSchwerpunkte>(context, key));
    }
    return kDone;
}

void AddList(Command& focus) {
    auto& command = focus.Add("list", "List the focus areas that there are, those of a seminar or of a date");
    const auto options = std::make_shared<ListOptions>();
    command.Option("--seminar", &options->seminar, "N", "SemID of the seminar").Naming(Names::kSeminar);
    command.Option("--date", &options->date, "N", "SemTerminID of the date").Naming(Names::kDate);
    command.Does([options](Context& context) { return List(context, *options); });
}

// tie

// A focus area that could not be made is tied all the same, under a key that stands for nothing.
bool IsThere(Context& context, clsSemTerminSchwerpunkt& area) {
    const auto stored = New<clsSemTerminSchwerpunkt>();
    if (!stored->Init(area.SchwerpunktID(), area.SemTerminID(), context.Session())) return false;
    return !stored->WBS().empty();
}

int Tie(Context& context, Int32 key, const std::string& name) {
    if (name.empty()) throw UsageError("NAME: a focus area has a name.");
    DateOf(context, key);
    const auto area = New<clsSemTerminSchwerpunkt>();
    if (!area->Init(0, key, context.Session())) RaiseRefused(context.Session()->LastErrorText());
    area->WBS(Quoted(name));
    if (!area->WriteToDatabase()) RaiseRefused(context.Session()->LastErrorText());
    const bool is_new = area->SchwerpunktID() != 0;
    if (is_new && !IsThere(context, *area)) {
        if (!area->DeleteFromDatabase()) RaiseRefused(context.Session()->LastErrorText());
        fmt::print(stderr, "lumoseminar: The focus area {} could not be made; nothing was tied.\n", OneLine(name));
        return kRefused;
    }
    Print(context, *AreasOf<colSemTerminSchwerpunkte>(context, key), is_new ? "" : ", tied already");
    return kDone;
}

void AddTie(Command& focus) {
    struct Typed {
        std::string date;
        std::string name;
    };
    auto& command = focus.Add("tie", "Tie a date to the focus area of that name, and list its focus areas");
    const auto typed = std::make_shared<Typed>();
    TakeDate(command, &typed->date);
    command.Argument("NAME", &typed->name, "Name of the focus area").Required().Naming(Names::kFocusArea);
    command.Remark("Where there is no focus area of that name it is made, with the greatest key plus 1.");
    command.Writes();
    command.Does([typed](Context& context) { return Tie(context, ReadInt32("DATE", typed->date), typed->name); });
}

// untie

Ref<clsSemTerminSchwerpunkt> AreaIn(colSemTerminSchwerpunkte& list, Int32 key, Int32 area_key) try {
    return list.Item(KeyText(area_key));
} catch (const Error& error) {
    if (error.Number() != ErrorNumber::kKeyNotFound) throw;
    Raise(error.Number(), fmt::format("Date {} is not tied to the focus area {}.", key, area_key));
}

int Untie(Context& context, Int32 key, Int32 area_key) {
    DateOf(context, key);
    const auto list = AreasOf<colSemTerminSchwerpunkte>(context, key);
    const auto area = AreaIn(*list, key, area_key);
    const Text name = area->WBS();
    const Int32 before = list->Count();
    list->Remove(KeyText(area_key));
    if (list->Count() == before) RaiseRefused(context.Session()->LastErrorText());
    Sheet sheet = Head();
    sheet.columns.emplace_back("Outcome");
    sheet.rows.push_back({area_key, name, "untied"});
    context.Print(sheet);
    context.Note(Counted(static_cast<std::size_t>(list->Count()), "focus area") + " left");
    return kDone;
}

void AddUntie(Command& focus) {
    struct Typed {
        std::string date;
        std::string area;
    };
    auto& command = focus.Add("untie", "Untie a date from a focus area, which stays");
    const auto typed = std::make_shared<Typed>();
    TakeDate(command, &typed->date);
    command.Argument("KEY", &typed->area, "SchwerpunktID or name of the focus area").Required().Naming(Names::kFocusArea);
    command.Writes();
    command.Does([typed](Context& context) {
        const Int32 key = ReadInt32("DATE", typed->date);
        return Untie(context, key, ReadFocusArea(context, "KEY", typed->area));
    });
}

}  // namespace

void AddFocus(Command& program) {
    auto& focus = program.Add("focus", "The focus areas of seminars and dates: list, tie, untie");
    AddList(focus);
    AddTie(focus);
    AddUntie(focus);
}

}  // namespace frontend
