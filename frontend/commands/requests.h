#pragma once

#include <functional>
#include <string>

#include <LumoSeminar/LumoSeminar.h>

#include "frontend/command_line/command.h"
#include "frontend/context.h"

namespace frontend {

// What the commands for requests share. A request is one of an employee: the library takes the number of any other
// person for that of an employee.

/// The oldest entry of an employee of the client on the wait-list of a date, with all its values; empty without one.
LumoSeminar::Ref<LumoSeminar::clsSemWarteliste> EntryOf(Context& context, LumoSeminar::Int32 person, LumoSeminar::Int32 date);

/// A training need of an employee of the client. Raises key not found (5).
LumoSeminar::Ref<LumoSeminar::clsANWBBedarf> NeedOf(Context& context, LumoSeminar::Int32 key);

/// The process of a subject.
LumoSeminar::Ref<LumoSeminar::InfoDispatcher> ProcessOf(LumoSeminar::clsSemWarteliste& entry);
LumoSeminar::Ref<LumoSeminar::InfoDispatcher> ProcessOf(LumoSeminar::clsANWBBedarf& need);

/// "Kölbl, Norbert", as a participant shows it.
LumoSeminar::Text NameVorname(LumoSeminar::clsWBPerson& person);

/// Whether there is one: it may have been withdrawn, and there may never have been one.
bool ConsentOf(LumoSeminar::clsSemWarteliste& entry);

/// The option --user-id, for `typed`: who acts, as the processes know users.
Parameter& AddUserOption(Command& command, std::string& typed, const char* help);
LumoSeminar::Int32 ReadUser(const std::string& typed);

/// Takes a step that a process has a say in, and gives its exit code. Where the process does not count the decision
/// that is told and the code is kRefused. Behind any other failure the state of the process is told: what the process
/// has recorded by then stands.
int TakeStep(const LumoSeminar::Ref<LumoSeminar::InfoDispatcher>& process, const std::function<int()>& step);

}  // namespace frontend
