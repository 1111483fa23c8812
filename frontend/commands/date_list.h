#pragma once

#include "frontend/program.h"

namespace frontend {

/// The command dates list.
void AddDateList(Program& program, CLI::App* dates);

}  // namespace frontend
