#pragma once

#include <string_view>
#include <vector>

#include "frontend/command_line/command.h"
#include "frontend/context.h"

namespace frontend {

/// Whether a text of T-SQL has a statement in it that changes rows or tables.
bool Changes(std::string_view statement);

/// Runs a command in a transaction that is taken back, and prints the statements by which it would have changed the
/// database in place of what the command prints. It ends at the first statement that the database refuses.
/// @return the exit code of the command
int RunDry(Context& context, const Action& action);

/// Prints statements as data. For people each stands whole on lines of its own, whatever the width of the screen.
void PrintStatements(const Context& context, const std::vector<LumoSeminar::Text>& statements);

}  // namespace frontend
