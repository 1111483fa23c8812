#pragma once

#include <CLI/CLI.hpp>

#include <functional>
#include <map>
#include <string>

#include "frontend/context.h"

namespace frontend {

/// Does the work of a command and gives the exit code.
using Action = std::function<int()>;

/// A check for options that name a file to be read.
CLI::Validator FileThatExists();

/// The command line of the program. Each command adds itself and says what it does when it was chosen.
class Program {
  public:
    Program();

    /// A command of the program.
    CLI::App* AddCommand(const std::string& name, const std::string& description);

    /// What to do where `command` is the innermost one typed.
    void OnCommand(CLI::App* command, Action action);

    Context& Work() { return context_; }

    /// Never raises.
    /// @return the exit code
    int Run(int argc, const char* const* argv);

  private:
    int ParseAndAct(int argc, const char* const* argv);
    int ReportUsage(const std::string& message);
    const CLI::App* Innermost() const;

    CLI::App app_;
    Context context_;
    std::map<const CLI::App*, Action> actions_;
};

}  // namespace frontend
