#include "frontend/commands/commands.h"

namespace frontend {

namespace {

constexpr void (*kCommands[])(Command&) = {
    AddInit,     AddSeminars, AddDates,      AddDays,   AddSeries,     AddParticipants, AddWaitlist,
    AddInterest, AddNeeds,    AddConsent,    AddCheck,  AddApprove,    AddWithdraw,     AddPersons,
    AddFocus,    AddTargets,  AddOrganisers, AddVenues, AddClerks,     AddCostTypes,    AddUsers,
    AddBudget,   AddSql,      AddTables,     AddTour,   AddCompletion, AddManual};

}  // namespace

void AddCommands(Command& program) {
    for (const auto add : kCommands) add(program);
}

}  // namespace frontend
