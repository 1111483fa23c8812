#include "frontend/command_line/manual.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <memory>

#include "frontend/command_line/parser.h"
#include "frontend/commands/commands.h"
#include "frontend/context.h"
#include "frontend/exit_codes.h"
#include "frontend/output/screen_text.h"
#include "frontend/program.h"
#include "frontend/version.h"

namespace frontend {

namespace {

struct ManualOptions {
    std::string command;
    std::string folder;
};

std::vector<CommandPath> Pages(const Command& program) {
    std::vector<CommandPath> pages{{&program}};
    for (const auto& command : program.Commands()) {
        if (!command.IsHidden()) pages.push_back({&program, &command});
    }
    return pages;
}

void WriteAllPages(const Command& program, const std::filesystem::path& folder) {
    std::error_code failed;
    std::filesystem::create_directories(folder, failed);
    for (const auto& path : Pages(program)) {
        const auto file = folder / (NameOfPage(path) + ".1");
        std::ofstream to(file, std::ios::binary);
        to << ManualPage(path, kVersion);
        if (!to.flush()) throw std::runtime_error("The file " + Visible(file.string()) + " cannot be written.");
    }
}

int Manual(const ManualOptions& options) {
    GeneralOptions unused;
    const DescribedProgram described(unused);
    const auto& program = described.program;
    if (!options.folder.empty()) {
        WriteAllPages(program, options.folder);
        return kDone;
    }
    CommandPath path{&program};
    if (!options.command.empty()) {
        const auto* command = program.Find(options.command);
        if (command == nullptr || command->IsHidden()) {
            std::vector<std::string> names;
            for (const auto& page : Pages(program)) names.push_back(page.back()->Name());
            throw UsageError(fmt::format("There is no command {}.{}", LumoSeminar::OneLine(options.command),
                                         DidYouMean(options.command, names)));
        }
        path.push_back(command);
    }
    fmt::print("{}", ManualPage(path, kVersion));
    return kDone;
}

}  // namespace

void AddManual(Command& program) {
    auto& command = program.Add("manual", "Print a page of the manual, in the language of man");
    const auto options = std::make_shared<ManualOptions>();
    command.Argument("COMMAND", &options->command, "The command that the page is about [the program]");
    command.Option("--folder", &options->folder, "FOLDER", "Write all pages there").Excludes("COMMAND");
    command.Remark("To read one: lumoseminar manual dates | man -l -");
    command.Does([options](Context&) { return Manual(*options); });
}

}  // namespace frontend
