#include "frontend/commands/date_list.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "frontend/commands/date_columns.h"
#include "frontend/commands/lists.h"
#include "frontend/exit_codes.h"
#include "frontend/output/counted.h"
#include "frontend/output/month_calendar.h"
#include "frontend/output/pager.h"
#include "frontend/output/terminal.h"
#include "frontend/output/tree.h"
#include "frontend/read_value.h"
#include "frontend/text_filter.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

// The numbers are those of the library.
enum class By { kNothing = 0, kYear = 1, kMonth = 2, kBudget = 3 };

struct ListOptions {
    std::optional<std::string> seminar;
    std::string by;
    std::string filter;
    bool all_columns = false;
};

// A date as the list has it. An open one has the present day as its end.
struct Listed {
    Ref<clsTermin> date;
    DateTime end;
    bool known_open = false;
};

struct Group {
    Variant value;
    Text heading;
    std::function<bool(const Listed&)> holds;
};

// Groups that hold a date, with their dates.
using Tree = std::vector<std::pair<Group, std::vector<Listed>>>;

std::chrono::year_month MonthOf(DateTime day) {
    const std::chrono::year_month_day date{day.Date()};
    return date.year() / date.month();
}

Group MakeGroup(By by, const Fields& fields) {
    const Variant value = fields.Item(0).Value();
    if (by == By::kBudget) {
        const auto from = To<DateTime>(fields.Item("von").Value());
        const auto to = To<DateTime>(fields.Item("bis").Value());
        return {value, To<Text>(value),
                [=](const Listed& one) { return !one.known_open && one.end > from && one.end < to; }};
    }
    if (by == By::kMonth) {
        const auto month = MonthOf(To<DateTime>(value));
        return {value, MonthName(month), [=](const Listed& one) { return MonthOf(one.end) == month; }};
    }
    const std::chrono::year year{To<Int32>(value)};
    return {value, To<Text>(value), [=](const Listed& one) { return MonthOf(one.end).year() == year; }};
}

std::vector<Group> GroupsOf(Context& context, colTermine& list, By by) {
    const auto rows = list.Gruppen(static_cast<Int32>(by));
    if (!rows) RaiseRefused(context.Session()->LastErrorText());
    std::vector<Group> groups;
    for (; !rows->Eof(); rows->MoveNext()) groups.push_back(MakeGroup(by, rows->Fields()));
    rows->Close();
    return groups;
}

Group OfAllOthers(By by) {
    return {Variant::Null(),
            by == By::kBudget ? "In no budget period: without an end, or not between the first and the last day of one"
                              : "In no group",
            {}};
}

// An open date is in no budget period, whatever day it is: those that the list shows as ending today are asked for.
void FindOpenOnes(Context& context, Int32 seminar, std::vector<Listed>& dates) {
    const auto EndsToday = [](const Listed& one) { return one.end == Today(); };
    if (std::ranges::none_of(dates, EndsToday)) return;
    const auto open = DatesOf(context, seminar, " AND EndeDatum IS NULL");
    for (auto& one : dates) one.known_open = open->Item(one.date->Key()) != nullptr;
}

Sheet Head(bool all_columns) {
    if (all_columns) return DateColumns().Head(Extent::kAll);
    return {{DateColumns().key_name, "EndeDatum", "Titel", "Code"}, {}};
}

// Without all columns the row is shown as the list has it: asked for with false, so that nothing is read for it.
void AddRow(Sheet& sheet, const Listed& one, bool all_columns) {
    if (all_columns) {
        DateColumns().AddRow(sheet, *one.date, Extent::kAll);
        return;
    }
    const Variant end = one.known_open ? Variant::Null() : Variant(one.end);
    sheet.rows.push_back({To<Int32>(Variant(one.date->Key())), end, one.date->Titel(false), one.date->Code(false)});
}

void PrintTree(const Context& context, Sheet sheet, const Tree& tree, bool all_columns) {
    std::vector<Branch> branches;
    std::vector<Variant> values;
    for (const auto& [group, dates] : tree) {
        branches.push_back({fmt::format("{} ({})", group.heading, Counted(dates.size(), "date")), dates.size()});
        for (const auto& one : dates) {
            AddRow(sheet, one, all_columns);
            values.push_back(group.value);
        }
    }
    if (context.options.format == Format::kTable) {
        const auto terminal = TerminalOf(stdout);
        ShowPaged(TreeText(sheet, branches, {terminal.width, terminal.colour, context.options.records}),
                  !context.options.no_pager);
        return;
    }
    sheet.columns.insert(sheet.columns.begin(), "Group");
    for (std::size_t i = 0; i < values.size(); ++i) sheet.rows[i].insert(sheet.rows[i].begin(), values[i]);
    context.Print(sheet);
}

void ListInGroups(Context& context, colTermine& list, std::vector<Listed> dates, Int32 seminar, By by, bool all_columns) {
    if (by == By::kBudget) FindOpenOnes(context, seminar, dates);
    auto groups = GroupsOf(context, list, by);
    auto others = OfAllOthers(by);
    others.holds = [&](const Listed& one) {
        return std::ranges::none_of(groups, [&](const Group& group) { return group.holds(one); });
    };
    Tree tree;
    const auto AddGroup = [&](const Group& group) {
        std::vector<Listed> inside;
        std::ranges::copy_if(dates, std::back_inserter(inside), group.holds);
        if (!inside.empty()) tree.emplace_back(group, std::move(inside));
    };
    std::ranges::for_each(groups, AddGroup);
    AddGroup(others);
    PrintTree(context, Head(all_columns), tree, all_columns);
}

By ReadBy(const std::string& name) {
    if (name == "year") return By::kYear;
    if (name == "month") return By::kMonth;
    if (name == "budget") return By::kBudget;
    return By::kNothing;
}

int List(Context& context, const ListOptions& options) {
    const By by = ReadBy(options.by);
    const Int32 seminar = options.seminar ? ReadInt32("--seminar", *options.seminar) : kAllSeminars;
    const auto list = DatesOf(context, seminar);
    const TextFilter filter(options.filter);
    std::vector<Listed> dates;
    for (const auto& date : list->NewEnum()) {
        if (!filter.FindsIn(date->Titel(false)) && !filter.FindsIn(date->Code(false))) continue;
        dates.push_back({date, date->EndeDatum(false)});
    }
    if (by != By::kNothing) {
        ListInGroups(context, *list, dates, seminar, by, options.all_columns);
    } else {
        Sheet sheet = Head(options.all_columns);
        for (const auto& one : dates) AddRow(sheet, one, options.all_columns);
        context.Print(sheet);
    }
    context.Note(filter.IsEmpty() ? Counted(dates.size(), "date")
                                  : fmt::format("{} of {} dates", dates.size(), list->Count()));
    return kDone;
}

}  // namespace

void AddDateList(Command& dates) {
    auto& command = dates.Add("list", "List the dates of the client and those common to all, the latest first");
    const auto options = std::make_shared<ListOptions>();
    command.Option("--seminar", &options->seminar, "N", "Only the dates of this seminar");
    command
        .Option("--by", &options->by, "GROUP",
                "In groups by the year, the month or the budget period of the end: year, month or budget")
        .OneOf({"year", "month", "budget"});
    command.Option("--filter", &options->filter, "TEXT", "Only dates with this text in title or code, in any capitals");
    command.Flag("--all-columns", options->all_columns, "All columns in place of the most wanted; reads each date");
    command.Remark(
        "A date without an end stands as of today: it is shown and grouped as if it ended today.\n"
        "With --all-columns its end is NULL; in budget periods, too, and it is in none of them.\n"
        "A date that ends on the first or last day of a budget period is in none either.");
    command.Does([options](Context& context) { return List(context, *options); });
}

}  // namespace frontend
