#pragma once

#include "frontend/command_line/command.h"

namespace frontend {

// What several commands take, described once.

/// DATE, the key of a date.
Parameter& TakeDate(Command& command, Parameter::Target typed);

/// PERSON, an employee, for ReadPerson.
Parameter& TakeEmployee(Command& command, Parameter::Target typed);

/// PERSON, of any kind, for ReadPerson.
Parameter& TakePerson(Command& command, Parameter::Target typed);

}  // namespace frontend
