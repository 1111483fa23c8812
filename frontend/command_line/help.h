#pragma once

#include <string>

#include "frontend/command_line/command.h"

namespace frontend {

/// What --help prints, wrapped at word ends to that many columns of the screen.
std::string HelpText(const CommandPath& path, int width);

/// "lumoseminar dates show [OPTIONS] KEY"
std::string UsageLine(const CommandPath& path);

}  // namespace frontend
