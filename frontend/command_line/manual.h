#pragma once

#include <string>

#include "frontend/command_line/command.h"

namespace frontend {

/// The page of the manual about the program or about one of its commands and what is below it, in the language of man.
/// @param path  the program, or the program and a command of it
/// @param version  of the program
std::string ManualPage(const CommandPath& path, const std::string& version);

/// "lumoseminar", "lumoseminar-dates"
std::string NameOfPage(const CommandPath& path);

}  // namespace frontend
