#include "frontend/command_line/parser.h"

#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>
#include <numeric>
#include <utility>

#include <LumoSeminar/frame/errors.h>

#include "frontend/exit_codes.h"
#include "frontend/output/screen_text.h"

namespace frontend {

using LumoSeminar::OneLine;

namespace {

bool LooksLikeOption(const std::string& word) { return word.size() > 1 && word.front() == '-'; }

// How many characters are to be changed, put in, taken out or swapped with their neighbours.
std::size_t Distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> before(b.size() + 1);
    std::vector<std::size_t> last(b.size() + 1);
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(last.begin(), last.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (a[i - 1] == b[j - 1] ? 0U : 1U)});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[j] = std::min(row[j], before[j - 2] + 1);
        }
        std::swap(before, last);
        std::swap(last, row);
    }
    return last.back();
}

std::vector<std::string> NamesOf(const std::deque<Command>& commands) {
    std::vector<std::string> names;
    for (const auto& command : commands) {
        if (!command.IsHidden()) names.push_back(command.Name());
    }
    return names;
}

// The options of the program come in front of those of the command.
std::vector<const Parameter*> OptionsOf(const ChosenCommand& chosen) {
    std::vector<const Parameter*> options;
    for (const auto& option : chosen.path.front()->Options()) options.push_back(&option);
    if (chosen.path.size() == 1) return options;
    for (const auto& option : chosen.Innermost().Options()) options.push_back(&option);
    return options;
}

[[noreturn]] void RefuseWord(const ChosenCommand& chosen, const std::string& word) {
    const auto& command = chosen.Innermost();
    if (LooksLikeOption(word)) {
        const auto name = word.substr(0, word.find('='));
        if (name == "--dry-run") {
            throw UsageError(
                fmt::format("There is no --dry-run to \"{}\": it is for commands that write.", NameOf(chosen.path)));
        }
        std::vector<std::string> names;
        for (const auto* option : OptionsOf(chosen)) names.push_back(option->Name());
        throw UsageError(fmt::format("There is no option {}.{}", Visible(name), DidYouMean(name, names)));
    }
    if (!command.Commands().empty()) {
        throw UsageError(
            fmt::format("There is no command {}.{}", OneLine(word), DidYouMean(word, NamesOf(command.Commands()))));
    }
    throw UsageError(fmt::format("{} is too much: {} takes {}.", OneLine(word), NameOf(chosen.path),
                                 command.Arguments().empty() ? "no argument" : "no more arguments"));
}

// What was typed for each of the parameters of a command.
class Typed {
  public:
    explicit Typed(const ChosenCommand& chosen) : chosen_(chosen) {
        app_.set_help_flag("");
        app_.allow_extras();
        // Arguments come first: that is the order in which what is missing is told.
        for (const auto& argument : chosen.Innermost().Arguments()) Add(argument);
        for (const auto* option : OptionsOf(chosen)) Add(*option);
    }

    void Read() {
        auto words = chosen_.words;
        std::reverse(words.begin(), words.end());
        try {
            app_.parse(std::move(words));
        } catch (const CLI::ArgumentMismatch& error) {
            RefuseValues(error.what());
        } catch (const CLI::ParseError& error) {
            throw UsageError(error.what());
        }
        // The mark behind which nothing is an option is among what is left.
        for (const auto& word : app_.remaining()) {
            if (word != "--") RefuseWord(chosen_, word);
        }
        for (const auto& one : parameters_) Check(one);
        for (const auto& [parameter, option] : parameters_) {
            if (option->count() != 0) parameter->Take(option->results());
        }
    }

  private:
    using Pair = std::pair<const Parameter*, CLI::Option*>;

    void Add(const Parameter& parameter) {
        if (parameter.IsFlag()) {
            parameters_.emplace_back(&parameter, app_.add_flag(parameter.Name()));
            return;
        }
        auto* option = app_.add_option(parameter.Name());
        if (parameter.IsRepeated()) option->expected(1, CLI::detail::expected_max_vector_size - 1);
        option->allow_extra_args(parameter.IsRepeated());
        option->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
        parameters_.emplace_back(&parameter, option);
    }

    bool IsGiven(const std::string& name) const {
        return std::ranges::any_of(
            parameters_, [&](const Pair& one) { return one.first->Name() == name && one.second->count() != 0; });
    }

    void Check(const Pair& one) const {
        const auto& [parameter, option] = one;
        if (option->count() == 0) {
            if (!parameter->IsRequired()) return;
            throw UsageError(fmt::format("{} is missing: {}.", parameter->Name(), parameter->Help()));
        }
        if (!parameter->NeededOption().empty() && !IsGiven(parameter->NeededOption())) {
            throw UsageError(fmt::format("{} goes with {} only.", parameter->Name(), parameter->NeededOption()));
        }
        if (!parameter->ExcludedOption().empty() && IsGiven(parameter->ExcludedOption())) {
            throw UsageError(fmt::format("Give {} or {}, not both.", parameter->ExcludedOption(), parameter->Name()));
        }
        if (parameter->IsFlag()) return;
        if (!parameter->IsRepeated() && option->results().size() > 1) {
            throw UsageError(fmt::format("{} is given {} times.", parameter->Name(), option->results().size()));
        }
        for (const auto& value : option->results()) CheckValue(*parameter, value);
    }

    static void CheckValue(const Parameter& parameter, const std::string& value) {
        const auto& words = parameter.Words();
        if (!words.empty() && std::ranges::find(words, value) == words.end()) {
            throw UsageError(fmt::format("{}: {} is none of {}.{}", parameter.Name(), OneLine(value),
                                         fmt::join(words, ", "), DidYouMean(value, words)));
        }
        std::error_code failed;
        if (parameter.IsExistingFile() && !std::filesystem::is_regular_file(value, failed)) {
            throw UsageError(fmt::format("{}: there is no file {}.", parameter.Name(), OneLine(value)));
        }
    }

    // The parser names the option in front of a colon.
    [[noreturn]] void RefuseValues(const std::string& message) const {
        const auto name = message.substr(0, message.find(':'));
        for (const auto& [parameter, option] : parameters_) {
            if (parameter->Name() != name || parameter->IsFlag()) continue;
            if (option->count() > 1) throw UsageError(fmt::format("{} is given {} times.", name, option->count()));
            throw UsageError(
                fmt::format("{} needs a value{}.", name, parameter->Value().empty() ? "" : ": " + parameter->Value()));
        }
        throw UsageError(message);
    }

    const ChosenCommand& chosen_;
    CLI::App app_;
    std::vector<Pair> parameters_;
};

}  // namespace

ChosenCommand ChooseCommand(const Command& program, const std::vector<std::string>& words) {
    ChosenCommand chosen{{&program}, {}};
    std::size_t at = 0;
    for (; at < words.size() && !chosen.Innermost().Commands().empty(); ++at) {
        const auto& word = words[at];
        if (!LooksLikeOption(word)) {
            const auto* next = chosen.Innermost().Find(word);
            if (next == nullptr) break;
            chosen.path.push_back(next);
            continue;
        }
        chosen.words.push_back(word);
        const auto* option = program.FindOption(word);
        if (option != nullptr && !option->IsFlag() && at + 1 < words.size()) chosen.words.push_back(words[++at]);
    }
    // What names no command comes first, so that it is what the refusal is about.
    if (at < words.size() && !chosen.Innermost().Commands().empty()) {
        chosen.words.insert(chosen.words.begin(), words.begin() + static_cast<std::ptrdiff_t>(at), words.end());
    } else {
        chosen.words.insert(chosen.words.end(), words.begin() + static_cast<std::ptrdiff_t>(at), words.end());
    }
    return chosen;
}

bool IsHelpWanted(const ChosenCommand& chosen) {
    for (const auto& word : chosen.words) {
        if (word == "--") return false;
        if (word == "--help" || word == "-h") return true;
    }
    return false;
}

void ReadWords(const ChosenCommand& chosen) { Typed(chosen).Read(); }

std::string LikelyMeant(const std::string& typed, const std::vector<std::string>& names) {
    const auto wanted = FoldCase(typed);
    std::string likest;
    std::size_t least = std::max<std::size_t>(1, wanted.size() / 3) + 1;
    for (const auto& name : names) {
        const auto folded = FoldCase(name);
        const bool begins = wanted.size() >= 2 && folded.starts_with(wanted);
        const std::size_t distance = begins ? 1 : Distance(wanted, folded);
        if (distance >= least || distance >= folded.size()) continue;
        least = distance;
        likest = name;
    }
    return likest;
}

std::string DidYouMean(const std::string& typed, const std::vector<std::string>& names) {
    const auto meant = LikelyMeant(typed, names);
    return meant.empty() ? "" : fmt::format(" Did you mean {}?", LooksLikeOption(meant) ? meant : OneLine(meant));
}

}  // namespace frontend
