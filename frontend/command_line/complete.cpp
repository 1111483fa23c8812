#include "frontend/command_line/complete.h"

#include <algorithm>
#include <cstddef>

#include "frontend/command_line/parser.h"
#include "frontend/output/screen_text.h"

namespace frontend {

namespace {

// Where the begun word stands: what was typed in front of it for the innermost command.
struct Position {
    CommandPath path;
    std::vector<std::string> given;
    std::size_t arguments = 0;
    /// Its value is being typed.
    const Parameter* option = nullptr;
    bool behind_mark = false;
};

const Parameter* FindOption(const CommandPath& path, std::string_view name) {
    const auto* option = path.front()->FindOption(name);
    return option != nullptr ? option : path.back()->FindOption(name);
}

Position Find(const Command& program, const std::vector<std::string>& words) {
    auto chosen = ChooseCommand(program, {words.begin(), words.end() - 1});
    Position position;
    position.path = std::move(chosen.path);
    for (const auto& word : chosen.words) {
        if (position.option != nullptr) {
            position.option = nullptr;
        } else if (position.behind_mark || word.size() < 2 || word.front() != '-') {
            ++position.arguments;
        } else if (word == "--") {
            position.behind_mark = true;
        } else {
            const auto name = word.substr(0, word.find('='));
            const auto* option = FindOption(position.path, name);
            position.given.push_back(name);
            if (option != nullptr && !option->IsFlag() && name == word) position.option = option;
        }
    }
    return position;
}

// All candidates that begin so; otherwise those that stand for something that begins so.
std::vector<Candidate> ThatBegin(const std::vector<Candidate>& all, const std::string& begun) {
    const auto folded = FoldCase(begun);
    std::vector<Candidate> found;
    const auto Take = [&](auto begins) { std::ranges::copy_if(all, std::back_inserter(found), begins); };
    Take([&](const Candidate& one) { return FoldCase(one.text).starts_with(folded); });
    if (found.empty()) Take([&](const Candidate& one) { return FoldCase(one.what).starts_with(folded); });
    return found;
}

Candidates Values(const Parameter& parameter, const CommandPath& path, const std::string& begun, const NameSource& names) {
    if (parameter.What() == Names::kFile) return {{}, true};
    std::vector<Candidate> all;
    for (const auto& word : parameter.Words()) all.push_back({word, {}});
    if (all.empty() && parameter.What() != Names::kNothing && names) all = names(parameter.What(), path);
    return {ThatBegin(all, begun), false};
}

Candidates OptionsThatBegin(const Position& position, const std::string& begun) {
    const auto IsGiven = [&](const std::string& name) {
        return std::ranges::find(position.given, name) != position.given.end();
    };
    Candidates candidates;
    const auto Add = [&](const Command& command) {
        for (const auto& option : command.Options()) {
            if (!option.Name().starts_with(begun) || (IsGiven(option.Name()) && !option.IsRepeated())) continue;
            if (!option.ExcludedOption().empty() && IsGiven(option.ExcludedOption())) continue;
            candidates.all.push_back({option.Name(), option.Help()});
        }
    };
    if (position.path.size() > 1) Add(*position.path.back());
    Add(*position.path.front());
    return candidates;
}

Candidates Commands(const Command& group, const std::string& begun) {
    Candidates candidates;
    for (const auto& command : group.Commands()) {
        if (!command.IsHidden() && command.Name().starts_with(begun)) {
            candidates.all.push_back({command.Name(), command.Summary()});
        }
    }
    return candidates;
}

}  // namespace

Candidates Complete(const Command& program, const std::vector<std::string>& words, const NameSource& names) {
    if (words.empty()) return {};
    const auto position = Find(program, words);
    const auto& command = *position.path.back();
    const auto& begun = words.back();
    if (position.option != nullptr) return Values(*position.option, position.path, begun, names);
    if (!position.behind_mark && begun.starts_with('-')) {
        const auto equals = begun.find('=');
        if (equals == std::string::npos) return OptionsThatBegin(position, begun);
        const auto* option = FindOption(position.path, begun.substr(0, equals));
        if (option == nullptr || option->IsFlag()) return {};
        auto values = Values(*option, position.path, begun.substr(equals + 1), names);
        for (auto& one : values.all) one.text.insert(0, begun, 0, equals + 1);
        return values;
    }
    if (!command.Commands().empty()) return position.arguments == 0 ? Commands(command, begun) : Candidates{};
    const auto& arguments = command.Arguments();
    if (arguments.empty()) return {};
    const auto& argument = arguments[std::min(position.arguments, arguments.size() - 1)];
    if (position.arguments >= arguments.size() && !argument.IsRepeated()) return {};
    return Values(argument, position.path, begun, names);
}

void TakeOptionsOf(const Command& program, const std::vector<std::string>& words) {
    for (std::size_t i = 0; i < words.size() && words[i] != "--"; ++i) {
        const auto equals = words[i].find('=');
        const auto* option = program.FindOption(words[i].substr(0, equals));
        if (option == nullptr || option->IsFlag()) continue;
        if (equals != std::string::npos) {
            option->Take({words[i].substr(equals + 1)});
        } else if (i + 1 < words.size()) {
            option->Take({words[++i]});
        }
    }
}

}  // namespace frontend
