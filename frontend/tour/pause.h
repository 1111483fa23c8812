#pragma once

#include <string_view>

namespace frontend {

/// Whether somebody sits at a terminal, reads there and can answer.
bool IsSomebodyThere();

/// Shows the line and waits for a key; the line goes when it comes. The terminal is left as it was.
/// @return false for q, Ctrl-D and a terminal that is gone. Throws TourInterrupted at a signal.
bool WaitForEnter(std::string_view line);

}  // namespace frontend
