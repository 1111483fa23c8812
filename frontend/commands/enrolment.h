#pragma once

#include "frontend/command_line/command.h"

namespace frontend {

/// The command participants enrol.
void AddEnrol(Command& participants);

}  // namespace frontend
