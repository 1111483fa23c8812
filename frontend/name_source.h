#pragma once

#include <vector>

#include "frontend/command_line/complete.h"
#include "frontend/context.h"

namespace frontend {

/// What there is of a kind in the database of the context: keys with what they stand for, names. Empty where the
/// database cannot be asked.
std::vector<Candidate> NamesIn(Context& context, Names what, const CommandPath& path);

}  // namespace frontend
