#include "frontend/program.h"

#include <fmt/format.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <utility>

#include "frontend/commands/commands.h"
#include "frontend/exit_codes.h"
#include "frontend/output/screen_text.h"

namespace frontend {
namespace {

// Options without their long lines.
class Formatter final : public CLI::Formatter {
  public:
    Formatter() {
        label("SUBCOMMAND", "COMMAND");
        label("SUBCOMMANDS", "COMMANDS");
    }

    std::string make_option_desc(const CLI::Option* option) const override {
        std::string description;
        for (const auto& line : Wrap(option->get_description(), 80 - static_cast<int>(get_column_width()))) {
            description += (description.empty() ? "" : "\n") + line;
        }
        return description;
    }
};

constexpr const char* kCommandFooter = "General options, formats and exit codes: lumoseminar --help";

constexpr const char* kFooter =
    "General options may stand before or behind the command.\n"
    "\n"
    "Formats: a table is for people; json and csv are for programs. In JSON money is a\n"
    "number with two to four decimals, written out exactly (a reader that takes\n"
    "numbers as doubles may round it from 15 digits on), a moment is a text\n"
    "\"yyyy-mm-ddThh:mm:ss\", NULL is null. In CSV NULL is nothing, the empty text \"\".\n"
    "\n"
    "Exit codes: 0 done, 1 refused or with findings, 2 wrong usage.\n"
    "\n"
    "Environment: LUMOSEMINAR_CONNECT and LUMOSEMINAR_PASSWORD stand in for --connect\n"
    "and --password, LUMOSEMINAR_SCHEMA names the folder of schema.sql and the like,\n"
    "NO_COLOR turns colours off.";

}  // namespace

CLI::Validator FileThatExists() { return CLI::Validator(CLI::ExistingFile).description(""); }

Program::Program() : app_("Seminar administration on the command line.", "lumoseminar") {
    app_.fallthrough();
    app_.require_subcommand(1);
    app_.formatter(std::make_shared<Formatter>());
    app_.footer(kCommandFooter);
    app_.set_version_flag("--version", "lumoseminar " LUMOSEMINAR_VERSION, "Print the version and end");
    auto& options = context_.options;
    app_.add_option("--connect", options.connect,
                    "The database: \"Provider=Embedded;Data Source=FILE\" (or :memory:), otherwise an ODBC connection "
                    "text [LUMOSEMINAR_CONNECT, otherwise the file lumoseminar.db in the working folder]")
        ->type_name("TEXT");
    app_.add_option("--user", options.user, "User name for the database")->type_name("TEXT");
    if (const char* password = std::getenv("LUMOSEMINAR_PASSWORD")) options.password = password;
    app_.add_option("--password", options.password, "Password for the database [LUMOSEMINAR_PASSWORD]")->type_name("TEXT");
    app_.add_option("--client", options.client, "Number of the client [the active client, otherwise 1]")->type_name("N");
    app_.add_flag("--trace", options.trace, "Show each statement with its time and rows on standard error");
    static const std::map<std::string, Format> formats{
        {"table", Format::kTable}, {"json", Format::kJson}, {"csv", Format::kCsv}};
    app_.add_option_function<std::string>(
            "--format",
            [this](const std::string& name) {
                const auto format = formats.find(name);
                if (format == formats.end()) {
                    throw CLI::ValidationError("--format", LumoSeminar::OneLine(name) + " is none of table, json, csv.");
                }
                context_.options.format = format->second;
            },
            "How data is printed: table, json or csv [table]")
        ->type_name("FORMAT");
    for (const auto add : kCommands) add(*this);
    app_.footer(kFooter);
}

CLI::App* Program::AddCommand(const std::string& name, const std::string& description) {
    return app_.add_subcommand(name, description)->group("Commands");
}

void Program::OnCommand(CLI::App* command, Action action) { actions_[command] = std::move(action); }

int Program::Run(int argc, const char* const* argv) {
    int code = kRefused;
    try {
        code = ParseAndAct(argc, argv);
    } catch (const UsageError& error) {
        code = ReportUsage(error.what());
    } catch (const LumoSeminar::Error& error) {
        Report(error);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "lumoseminar: %s\n", error.what());
    } catch (...) {
        std::fputs("lumoseminar: an exception of an unknown type was thrown.\n", stderr);
    }
    std::cout.flush();
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0 || !std::cout) {
        std::fputs("lumoseminar: standard output could not be written.\n", stderr);
        return kRefused;
    }
    return code;
}

int Program::ParseAndAct(int argc, const char* const* argv) {
    try {
        app_.parse(argc, argv);
    } catch (const CLI::Success& request) {
        return app_.exit(request, std::cout, std::cerr);
    } catch (const CLI::RequiredError& error) {
        const auto left = app_.remaining(true);
        if (Innermost()->get_subcommands({}).empty()) return ReportUsage(error.what());
        if (left.empty()) return ReportUsage("A command is missing.");
        return ReportUsage("There is no command " + LumoSeminar::OneLine(left.front()) + ".");
    } catch (const CLI::ParseError& error) {
        return ReportUsage(error.what());
    }
    return actions_.at(Innermost())();
}

int Program::ReportUsage(const std::string& message) {
    std::string command = "lumoseminar";
    for (const CLI::App* at = &app_; !at->get_subcommands().empty();) {
        at = at->get_subcommands().back();
        command += ' ' + at->get_name();
    }
    fmt::print(stderr, "lumoseminar: {}\nTry \"{} --help\".\n", Visible(message), command);
    return kUsage;
}

const CLI::App* Program::Innermost() const {
    const CLI::App* at = &app_;
    while (!at->get_subcommands().empty()) at = at->get_subcommands().back();
    return at;
}

}  // namespace frontend
