#pragma once

#include <filesystem>
#include <string>

namespace frontend {

/// A command line of the shell on a terminal of its own, with no input but what is typed.
struct ShellCommand {
    std::filesystem::path folder;
    std::string line;
    unsigned short columns = 100;
    /// What is typed, and behind which text on the screen. Empty: nothing is, and there is nothing to read.
    std::string once_shown = {};
    std::string typed = {};
};

struct ShellResult {
    /// -1 where a signal has ended it.
    int code = -1;
    /// Both streams. Lines as they stay on the screen, ended by "\n", without blanks at their ends.
    std::string screen;
};

ShellResult RunShell(const ShellCommand& command);

}  // namespace frontend
