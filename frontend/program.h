#pragma once

#include <string>
#include <vector>

#include "frontend/command_line/command.h"
#include "frontend/context.h"

namespace frontend {

/// The commands of the program and its general options, described. What is typed behind the general options goes to
/// the options given.
/// @param options  has to live as long as the result
void DescribeProgram(Command& program, GeneralOptions& options);

/// The whole program, described.
struct DescribedProgram {
    /// @param options  have to live as long as the result
    explicit DescribedProgram(GeneralOptions& options) { DescribeProgram(program, options); }

    Command program{"lumoseminar", "Seminar administration on the command line"};
};

/// Reads what was typed for general options. Raises UsageError where it is wrong.
void ReadGeneralOptions(GeneralOptions& options);

/// Carries out command lines, one after the other on one session.
class Program {
  public:
    explicit Program(Context& context) : context_(context) {}

    /// @param words  without the name of the program
    /// @return the exit code. Never raises; what fails is told on standard error.
    int Run(const std::vector<std::string>& words);

  private:
    int Act(const std::vector<std::string>& words);

    Context& context_;
};

}  // namespace frontend
