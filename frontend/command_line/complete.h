#pragma once

#include <functional>
#include <string>
#include <vector>

#include "frontend/command_line/command.h"

namespace frontend {

/// What a word that is being typed may become.
struct Candidate {
    std::string text;
    /// What it stands for: "Erste Hilfe" of a key. May be empty.
    std::string what;
};

struct Candidates {
    std::vector<Candidate> all;
    /// A name of a file is wanted, which whoever asks has to find.
    bool files = false;
};

/// Gives what there is of a kind, for the command at the end of the path.
using NameSource = std::function<std::vector<Candidate>(Names, const CommandPath&)>;

/// What the last of the words may become: commands, options, values. The last one may be empty. Where it is the
/// beginning of no value, those are given that stand for something with that beginning.
Candidates Complete(const Command& program, const std::vector<std::string>& words, const NameSource& names);

/// Puts the options of the program that stand among the words in their places, as far as they are complete.
void TakeOptionsOf(const Command& program, const std::vector<std::string>& words);

}  // namespace frontend
