#pragma once

#include <string>
#include <string_view>

namespace frontend {

/// What a shell has to run, so that it completes command lines of the program. The script asks the command `complete`
/// of the program for what a word may become.
/// @param shell  bash, zsh or fish
std::string CompletionScript(std::string_view shell);

}  // namespace frontend
