#pragma once

namespace frontend {

class Program;

// A command a file: it declares its options and says what it does.
void AddApprove(Program& program);
void AddBudget(Program& program);
void AddCheck(Program& program);
void AddConsent(Program& program);
void AddDates(Program& program);
void AddDays(Program& program);
void AddFocus(Program& program);
void AddInit(Program& program);
void AddInterest(Program& program);
void AddNeeds(Program& program);
void AddParticipants(Program& program);
void AddPersons(Program& program);
void AddSeminars(Program& program);
void AddSeries(Program& program);
void AddSql(Program& program);
void AddTables(Program& program);
void AddTour(Program& program);
void AddWaitlist(Program& program);
void AddWithdraw(Program& program);

/// In the order of the help.
inline constexpr void (*kCommands[])(Program&) = {AddInit,         AddSeminars, AddDates,    AddDays,    AddSeries,
                                                  AddParticipants, AddWaitlist, AddInterest, AddNeeds,   AddConsent,
                                                  AddCheck,        AddApprove,  AddWithdraw, AddPersons, AddFocus,
                                                  AddBudget,       AddSql,      AddTables,   AddTour};

}  // namespace frontend
