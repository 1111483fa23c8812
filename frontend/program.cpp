#include "frontend/program.h"

#include <fmt/format.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <utility>

#include "frontend/command_line/help.h"
#include "frontend/command_line/parser.h"
#include "frontend/commands/commands.h"
#include "frontend/console/console.h"
#include "frontend/dry_run.h"
#include "frontend/exit_codes.h"
#include "frontend/output/screen_text.h"
#include "frontend/output/terminal.h"
#include "frontend/read_value.h"
#include "frontend/version.h"

namespace frontend {
namespace {

constexpr const char* kRemark =
    "General options may stand before or behind the command.\n"
    "\n"
    "Values: a day is typed as 1.3.2027 or 2027-03-01, as today, tomorrow or yesterday (heute, morgen, gestern), counted "
    "from today as +7d, -3d or +2w, or as a weekday, Mo or Monday: the next one, today where it is one. A time of day is "
    "typed as 9:00, 09.30 or 9h. Numbers and amounts have a point or a comma, and no mark for the thousands.\n"
    "\n"
    "Formats: a table is for people; json and csv are for programs. In JSON money is a number with two to four decimals, "
    "written out exactly (a reader that takes numbers as doubles may round it from 15 digits on), a moment is a text "
    "\"yyyy-mm-ddThh:mm:ss\", NULL is null. In CSV NULL is nothing, the empty text \"\".\n"
    "\n"
    "Exit codes: 0 done, 1 refused or with findings, 2 wrong usage.\n"
    "\n"
    "Environment: LUMOSEMINAR_CONNECT and LUMOSEMINAR_PASSWORD stand in for --connect and --password, LUMOSEMINAR_SCHEMA "
    "names the folder of schema.sql and the like, NO_COLOR turns colours off, PAGER names the program that shows what is "
    "longer than the screen (PAGER=cat: none).";

Format ReadFormat(const std::string& typed) {
    if (typed == "json") return Format::kJson;
    if (typed == "csv") return Format::kCsv;
    return Format::kTable;
}

int ReportUsage(const std::string& message, const std::string& command) {
    fmt::print(stderr, "lumoseminar: {}\nTry \"{} --help\".\n", Visible(message), command);
    return kUsage;
}

int HelpWidth() {
    const int width = TerminalOf(stdout).width;
    return width == 0 ? 80 : std::min(width, 120);
}

std::string MissingCommand(const Command& group) {
    std::string names;
    for (const auto& one : group.Commands()) names += (names.empty() ? "" : ", ") + one.Name();
    return "A command is missing: " + names + ".";
}

}  // namespace

void DescribeProgram(Command& program, GeneralOptions& options) {
    program.Option("--connect", &options.connect, "TEXT",
                   "The database: a file, or \"Provider=Embedded;Data Source=FILE\" (\";Mode=ReadOnly\" behind it writes "
                   "nothing), otherwise an ODBC connection text [LUMOSEMINAR_CONNECT, otherwise the file lumoseminar.db in "
                   "the working folder]");
    program.Option("--db", &options.database, "FILE", "A file of the embedded database, whatever its name")
        .Excludes("--connect")
        .Naming(Names::kFile);
    program.Option("--user", &options.user, "TEXT", "User name for the database");
    program.Option("--password", &options.password, "TEXT", "Password for the database [LUMOSEMINAR_PASSWORD]");
    program.Option("--client", &options.client_typed, "N", "Number of the client [the active client, otherwise 1]");
    program.Flag("--trace", options.trace, "Show each statement with its time and rows on standard error");
    program.Flag("--verbose", options.verbose,
                 "Tell more about a failure: its number, where it came from, the statement that was refused");
    program.Option("--format", &options.format_typed, "FORMAT", "How data is printed: table, json or csv [table]")
        .OneOf({"table", "json", "csv"});
    program.Flag("--no-pager", options.no_pager, "Never show what is longer than the screen through a pager");
    program.Flag("--help", options.help, "Print what the command takes, and end");
    program.Flag("--version", options.version, "Print the version and end");
    program.Remark(kRemark);
    AddCommands(program);
}

void ReadGeneralOptions(GeneralOptions& options) {
    options.format = ReadFormat(options.format_typed);
    if (options.client_typed) options.client = ReadInt32("--client", *options.client_typed);
}

int Program::Run(const std::vector<std::string>& words) {
    int code = kRefused;
    try {
        code = Act(words);
    } catch (const UsageError& error) {
        code = ReportUsage(error.what(), "lumoseminar");
    } catch (const LumoSeminar::Error& error) {
        context_.Report(error);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "lumoseminar: %s\n", error.what());
    } catch (...) {
        std::fputs("lumoseminar: An exception of an unknown type was thrown.\n", stderr);
    }
    std::cout.flush();
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0 || !std::cout) {
        std::fputs("lumoseminar: Standard output could not be written.\n", stderr);
        return kRefused;
    }
    return code;
}

int Program::Act(const std::vector<std::string>& words) {
    auto& options = context_.options;
    if (const char* password = std::getenv("LUMOSEMINAR_PASSWORD"); password != nullptr && options.password.empty()) {
        options.password = password;
    }
    const DescribedProgram described(options);
    const auto chosen = ChooseCommand(described.program, words);
    try {
        if (IsHelpWanted(chosen)) {
            fmt::print("{}", HelpText(chosen.path, HelpWidth()));
            return kDone;
        }
        ReadWords(chosen);
        ReadGeneralOptions(options);
        if (options.version) {
            fmt::print("lumoseminar {}\n", kVersion);
            return kDone;
        }
        const bool names_no_command = chosen.path.size() == 1;
        if (names_no_command && TerminalOf(stdin).is_terminal && TerminalOf(stdout).is_terminal) {
            return Console(context_).Run();
        }
        if (words.empty()) {
            fmt::print("{}", HelpText(chosen.path, HelpWidth()));
            return kUsage;
        }
        const auto& command = chosen.Innermost();
        if (!command.Act()) throw UsageError(MissingCommand(command));
        options.dry_run = command.IsDryRun();
        options.yes = command.IsAnswered();
        context_.ForgetFailure();
        const bool is_taken_back = options.dry_run && command.WayOfDryRun() == DryRun::kTakenBack;
        return is_taken_back ? RunDry(context_, command.Act()) : command.Act()(context_);
    } catch (const UsageError& error) {
        return ReportUsage(error.what(), NameOf(chosen.path));
    }
}

}  // namespace frontend
