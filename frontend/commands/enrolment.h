#pragma once

#include "frontend/program.h"

namespace frontend {

/// The command participants enrol.
void AddEnrol(Program& program, CLI::App* participants);

}  // namespace frontend
