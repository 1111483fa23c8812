#include <fmt/format.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <memory>

#include "frontend/command_line/complete.h"
#include "frontend/command_line/completion_scripts.h"
#include "frontend/commands/commands.h"
#include "frontend/context.h"
#include "frontend/exit_codes.h"
#include "frontend/name_source.h"
#include "frontend/program.h"

namespace frontend {

namespace {

// Seconds after which nobody who types waits for a name any more.
constexpr unsigned kPatience = 3;

extern "C" void EndWithoutAWord(int) { _exit(kRefused); }

// One candidate a line, behind a tab what it stands for; ":files" where the shell knows better.
int PrintCandidates(const std::vector<std::string>& words) {
    std::signal(SIGALRM, &EndWithoutAWord);
    alarm(kPatience);
    Context asked;
    DescribedProgram described(asked.options);
    TakeOptionsOf(described.program, words);
    ReadGeneralOptions(asked.options);
    const auto candidates = Complete(described.program, words,
                                     [&](Names what, const CommandPath& path) { return NamesIn(asked, what, path); });
    if (candidates.files) fmt::print(":files\n");
    for (const auto& one : candidates.all) fmt::print("{}{}{}\n", one.text, one.what.empty() ? "" : "\t", one.what);
    return kDone;
}

void AddComplete(Command& program) {
    auto& command = program.Add("complete", "Print what a word may become, for the completion of shells");
    const auto words = std::make_shared<std::vector<std::string>>();
    command.Argument("WORDS", words.get(), "The words of a command line, behind --; the last one is begun");
    command.Hide();
    command.Does([words](Context&) {
        try {
            return PrintCandidates(words->empty() ? std::vector<std::string>{""} : *words);
        } catch (const std::exception&) {
            return kRefused;
        }
    });
}

}  // namespace

void AddCompletion(Command& program) {
    auto& command = program.Add("completion", "Print what makes a shell complete command lines");
    const auto shell = std::make_shared<std::string>();
    command.Argument("SHELL", shell.get(), "bash, zsh or fish").Required().OneOf({"bash", "zsh", "fish"});
    command.Remark(
        "An installed program has this in place already. Otherwise, for this session of the shell:\n"
        "\n"
        "  bash, zsh   source <(lumoseminar completion bash)\n"
        "  fish        lumoseminar completion fish | source\n"
        "\n"
        "Completed are commands, options, their values, and the keys and names in the database that the command line "
        "would work on.");
    command.Does([shell](Context&) {
        fmt::print("{}", CompletionScript(*shell));
        return kDone;
    });
    AddComplete(program);
}

}  // namespace frontend
