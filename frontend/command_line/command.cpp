#include "frontend/command_line/command.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace frontend {

namespace {

template <class Things>
auto* Named(Things& things, std::string_view name) {
    const auto found = std::find_if(things.begin(), things.end(), [&](const auto& one) { return one.Name() == name; });
    return found == things.end() ? nullptr : &*found;
}

struct Put {
    const std::vector<std::string>& values;

    void operator()(bool* flag) const { *flag = true; }
    void operator()(std::vector<std::string>* all) const { *all = values; }
    template <class Text>
    void operator()(Text* text) const {
        *text = values.back();
    }
};

}  // namespace

void Parameter::Take(const std::vector<std::string>& values) const { std::visit(Put{values}, target_); }

Command& Command::Add(std::string name, std::string summary) {
    return commands_.emplace_back(std::move(name), std::move(summary));
}

Parameter& Command::Argument(std::string name, Parameter::Target target, std::string help) {
    return arguments_.emplace_back(std::move(name), target, "", std::move(help));
}

Parameter& Command::Option(std::string name, Parameter::Target target, std::string value, std::string help) {
    return options_.emplace_back(std::move(name), target, std::move(value), std::move(help));
}

Parameter& Command::Flag(std::string name, bool& target, std::string help) {
    return options_.emplace_back(std::move(name), &target, "", std::move(help));
}

void Command::Writes(DryRun dry_run) {
    way_of_dry_run_ = dry_run;
    Flag("--dry-run", dry_run_, "Print the statements that it would send, and leave the database as it is");
}

void Command::Asks() { Flag("--yes", answered_, "Do not ask: the answer is yes"); }

const Command* Command::Find(std::string_view name) const { return Named(commands_, name); }

const Parameter* Command::FindOption(std::string_view name) const { return Named(options_, name); }

Parameter& Command::OptionNamed(std::string_view name) {
    auto* option = Named(options_, name);
    if (option == nullptr) throw std::logic_error("no option " + std::string(name));
    return *option;
}

std::string NameOf(const CommandPath& path) {
    std::string name;
    for (const auto* command : path) name += (name.empty() ? "" : " ") + command->Name();
    return name;
}

}  // namespace frontend
