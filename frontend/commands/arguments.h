#pragma once

#include "frontend/command_line/command.h"

namespace frontend {

// What several commands take, described once.

/// DATE, the key of a date.
Parameter& TakeDate(Command& command, Parameter::Target typed);

/// PERSON, an employee.
Parameter& TakeEmployee(Command& command, Parameter::Target typed);

/// PERSON, of any kind.
Parameter& TakePerson(Command& command, Parameter::Target typed);

}  // namespace frontend
