#pragma once

#include <deque>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace frontend {

class Context;

/// Does the work of a command and gives the exit code.
using Action = std::function<int(Context&)>;

/// What a value names, so that completion can offer some.
enum class Names {
    kNothing,
    kFile,
    kTable,
    kSeminar,
    kDate,
    kPerson,
    kParticipant,
    kNeed,
    kSeries,
    kFocusArea,
    kUser,
    kDay,
    kTime,
    kColumn,
};

/// An argument, an option with a value, or a flag of a command.
class Parameter {
  public:
    /// Where what was typed goes: to a flag, to a value, to all values of one that may be given more than once.
    using Target = std::variant<bool*, std::string*, std::optional<std::string>*, std::vector<std::string>*>;

    Parameter(std::string name, Target target, std::string value, std::string help)
        : name_(std::move(name)), target_(target), value_(std::move(value)), help_(std::move(help)) {}

    Parameter& Required() {
        required_ = true;
        return *this;
    }
    /// The only values there are.
    Parameter& OneOf(std::initializer_list<const char*> words) {
        words_.assign(words.begin(), words.end());
        return *this;
    }
    /// Only together with that option.
    Parameter& Needs(std::string option) {
        needs_ = std::move(option);
        return *this;
    }
    /// Not together with that option.
    Parameter& Excludes(std::string option) {
        excludes_ = std::move(option);
        return *this;
    }
    /// A value names a file that has to be there.
    Parameter& ExistingFile() {
        existing_file_ = true;
        return Naming(Names::kFile);
    }
    Parameter& Naming(Names what) {
        names_ = what;
        return *this;
    }

    /// "--seminar", "KEY"
    const std::string& Name() const { return name_; }
    bool IsOption() const { return name_.starts_with('-'); }
    bool IsFlag() const { return std::holds_alternative<bool*>(target_); }
    bool IsRepeated() const { return std::holds_alternative<std::vector<std::string>*>(target_); }
    bool IsRequired() const { return required_; }
    bool IsExistingFile() const { return existing_file_; }
    /// What the help says in place of a value of an option: "N". Empty for flags and where the name says it.
    const std::string& Value() const { return value_; }
    const std::string& Help() const { return help_; }
    const std::vector<std::string>& Words() const { return words_; }
    const std::string& NeededOption() const { return needs_; }
    const std::string& ExcludedOption() const { return excludes_; }
    Names What() const { return names_; }

    /// Puts in place what was typed: nothing but the number counts for a flag.
    void Take(const std::vector<std::string>& values) const;

  private:
    std::string name_;
    Target target_;
    std::string value_;
    std::string help_;
    bool required_ = false;
    bool existing_file_ = false;
    std::vector<std::string> words_;
    std::string needs_;
    std::string excludes_;
    Names names_ = Names::kNothing;
};

/// A command line to be tried, and what it is good for.
struct Example {
    std::string line;
    std::string what;
};

/// How a command that writes goes about --dry-run.
enum class DryRun {
    kNone,
    /// It runs in a transaction that is taken back; the statements that it has sent are shown in place of what it prints.
    kTakenBack,
    /// It shows itself what it would send.
    kOwn,
};

/// A command of the program, or a group of commands: its name, what it takes, what it does. What is said here is what
/// the parser, the help, the manual and completion go by.
class Command {
  public:
    Command(std::string name, std::string summary) : name_(std::move(name)), summary_(std::move(summary)) {}
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;
    ~Command() = default;

    /// A command below this one.
    Command& Add(std::string name, std::string summary);

    /// @param name  in capitals; what has a vector as its target takes all that is left
    Parameter& Argument(std::string name, Parameter::Target target, std::string help);
    /// @param name  with its two dashes
    /// @param value  what the help says in place of the value
    Parameter& Option(std::string name, Parameter::Target target, std::string value, std::string help);
    Parameter& Flag(std::string name, bool& target, std::string help);

    /// The command changes the database. It gets the option --dry-run.
    void Writes(DryRun dry_run = DryRun::kTakenBack);

    /// The command asks before it does what cannot be taken back. It gets the option --yes, which answers.
    void Asks();

    /// Paragraphs behind the options, parted by empty lines; they are wrapped as the screen wants it.
    void Remark(std::string text) { remark_ = std::move(text); }

    /// The values behind options and arguments have to live as long as the action, which therefore owns them.
    void Does(Action action) { action_ = std::move(action); }

    /// For programs: help, manual and completion do not name it.
    void Hide() { hidden_ = true; }

    const std::string& Name() const { return name_; }
    bool IsHidden() const { return hidden_; }
    const std::string& Summary() const { return summary_; }
    const std::string& Remark() const { return remark_; }
    const std::deque<Command>& Commands() const { return commands_; }
    const std::deque<Parameter>& Options() const { return options_; }
    const std::deque<Parameter>& Arguments() const { return arguments_; }
    const Action& Act() const { return action_; }
    DryRun WayOfDryRun() const { return way_of_dry_run_; }
    /// Whether --dry-run was typed.
    bool IsDryRun() const { return dry_run_; }
    /// Whether --yes was typed.
    bool IsAnswered() const { return answered_; }

    /// Null for a name that is not there.
    const Command* Find(std::string_view name) const;
    const Parameter* FindOption(std::string_view name) const;

    /// Of an option that is there.
    Parameter& OptionNamed(std::string_view name);

  private:
    std::string name_;
    std::string summary_;
    std::string remark_;
    std::deque<Command> commands_;
    std::deque<Parameter> options_;
    std::deque<Parameter> arguments_;
    Action action_;
    DryRun way_of_dry_run_ = DryRun::kNone;
    bool dry_run_ = false;
    bool answered_ = false;
    bool hidden_ = false;
};

/// A command and those above it, the program first.
using CommandPath = std::vector<const Command*>;

/// "lumoseminar dates list"
std::string NameOf(const CommandPath& path);

}  // namespace frontend
