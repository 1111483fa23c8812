#pragma once

#include <string>
#include <vector>

#include "frontend/command_line/command.h"

namespace frontend {

/// The innermost command that words name, and the words that are left for it.
struct ChosenCommand {
    CommandPath path;
    std::vector<std::string> words;

    const Command& Innermost() const { return *path.back(); }
};

/// Follows the names of commands. Options of the program may stand in front of and between them; they are among the
/// words that are left. A word that names no command where one has to stand ends it: it is the first that is left.
ChosenCommand ChooseCommand(const Command& program, const std::vector<std::string>& words);

/// Whether --help or -h is among the words of a command, in front of "--" if that is there.
bool IsHelpWanted(const ChosenCommand& chosen);

/// Puts the words behind the options of the program and behind what the command takes. Raises UsageError at the first
/// that is wrong, and where something is missing.
void ReadWords(const ChosenCommand& chosen);

/// The name that is likest to what was typed, empty where none is like it.
std::string LikelyMeant(const std::string& typed, const std::vector<std::string>& names);

/// " Did you mean \"seminars\"?", empty where nothing is like it.
std::string DidYouMean(const std::string& typed, const std::vector<std::string>& names);

}  // namespace frontend
