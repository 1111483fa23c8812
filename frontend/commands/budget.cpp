#include <fmt/format.h>

#include <memory>
#include <string>

#include "frontend/commands/columns.h"
#include "frontend/commands/commands.h"
#include "frontend/context.h"
#include "frontend/exit_codes.h"
#include "frontend/output/counted.h"
#include "frontend/read_value.h"

namespace frontend {

using namespace LumoSeminar;

namespace {

Ref<colSemBudgetJahre> YearsOf(Context& context) {
    auto years = New<colSemBudgetJahre>();
    years->Init(context.Session());
    return years;
}

Sheet Head() { return {{"JahrID", "Von", "Bis"}, {}}; }

void AddRow(Sheet& sheet, clsSemBudgetJahr& year) {
    sheet.rows.push_back({year.JahrID(), ShownAs(Form::kDay, year.Von()), ShownAs(Form::kDay, year.Bis())});
}

int List(Context& context) {
    Sheet sheet = Head();
    for (const auto& year : YearsOf(context)->NewEnum()) AddRow(sheet, *year);
    context.Print(sheet);
    context.Note(Counted(sheet.rows.size(), "budget year"));
    return kDone;
}

int Of(Context& context, DateTime day) {
    const auto year = YearsOf(context)->GetBudgetJahr(day);
    if (!year) Raise(ErrorNumber::kKeyNotFound, fmt::format("{} lies in no budget year.", DateText(day)));
    Sheet sheet = Head();
    AddRow(sheet, *year);
    context.Print(sheet, Shape::kOneRow);
    return kDone;
}

}  // namespace

void AddBudget(Command& program) {
    auto& budget = program.Add("budget", "The budget years: list, of a day");
    auto& list = budget.Add("list", "List the budget years, the earliest first");
    list.Does([](Context& context) { return List(context); });
    auto& of = budget.Add("of", "Show the budget year that a day lies in");
    const auto day = std::make_shared<std::string>();
    of.Argument("DAY", day.get(), "The day, as 1.3.2027, today or +7d").Required();
    of.Does([day](Context& context) { return Of(context, ReadDay("DAY", *day)); });
}

}  // namespace frontend
