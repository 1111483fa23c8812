#pragma once

#include "frontend/command_line/command.h"

namespace frontend {

/// The command dates list.
void AddDateList(Command& dates);

}  // namespace frontend
