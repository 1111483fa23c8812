#pragma once

#include "frontend/command_line/command.h"

namespace frontend {

// A command a file: it declares its options and says what it does.
void AddApprove(Command& program);
void AddBudget(Command& program);
void AddCheck(Command& program);
void AddClerks(Command& program);
void AddCompletion(Command& program);
void AddConsent(Command& program);
void AddCostTypes(Command& program);
void AddDates(Command& program);
void AddDays(Command& program);
void AddFocus(Command& program);
void AddInit(Command& program);
void AddInterest(Command& program);
void AddManual(Command& program);
void AddNeeds(Command& program);
void AddOrganisers(Command& program);
void AddParticipants(Command& program);
void AddPersons(Command& program);
void AddSeminars(Command& program);
void AddSeries(Command& program);
void AddSql(Command& program);
void AddTables(Command& program);
void AddTargets(Command& program);
void AddTour(Command& program);
void AddUsers(Command& program);
void AddVenues(Command& program);
void AddWaitlist(Command& program);
void AddWithdraw(Command& program);

/// All of them, in the order of the help.
void AddCommands(Command& program);

}  // namespace frontend
