#include "frontend/console/console.h"

#include <LumoConnection/connection_text.h>
#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>

#include "frontend/command_line/parser.h"
#include "frontend/command_line/words.h"
#include "frontend/console/sql_words.h"
#include "frontend/exit_codes.h"
#include "frontend/name_source.h"
#include "frontend/output/screen_text.h"
#include "frontend/output/terminal.h"
#include "frontend/program.h"
#include "frontend/version.h"

namespace frontend {

using LumoSeminar::OneLine;

namespace {

constexpr const char* kHelp =
    "A line that begins with a command of the program is that command:\n"
    "  seminars list          dates add --help          --help\n"
    "Anything else is T-SQL, over several lines, and runs at a ; at the end of a line or at a line GO:\n"
    "  SELECT SemTitel FROM Sem_Katalog_IT WHERE Status = 1;\n"
    "\n"
    "  \\G         at the end in place of ; shows the rows as records\n"
    "  \\timing    tells how long each line took, or no longer\n"
    "  \\trace     shows each statement with its time and rows, or no longer\n"
    "  \\?         this help\n"
    "  \\q         ends, as do exit and Ctrl-D\n"
    "\n"
    "Tab completes commands, options, keys, tables and columns. Ctrl-C drops what was typed.\n"
    "Options alone on a line count from then on: --client 2, --format csv, --no-pager.\n";

std::filesystem::path HistoryFile() {
    const char* state = std::getenv("XDG_STATE_HOME");
    if (state != nullptr && *state == '/') return std::filesystem::path(state) / "lumoseminar" / "history";
    const char* home = std::getenv("HOME");
    if (home == nullptr || *home == '\0') return {};
    return std::filesystem::path(home) / ".local" / "state" / "lumoseminar" / "history";
}

// Files whose names begin so, folders with a / behind them.
std::vector<Candidate> FilesThatBegin(const std::string& begun) {
    const auto slash = begun.rfind('/');
    const auto front = slash == std::string::npos ? std::string{} : begun.substr(0, slash + 1);
    const auto name = begun.substr(front.size());
    std::vector<Candidate> found;
    std::error_code failed;
    for (const auto& file : std::filesystem::directory_iterator(front.empty() ? "." : front, failed)) {
        const auto own = file.path().filename().string();
        if (!own.starts_with(name) || (name.empty() && own.starts_with('.'))) continue;
        found.push_back({front + own + (file.is_directory(failed) ? "/" : ""), {}});
    }
    std::ranges::sort(found, {}, &Candidate::text);
    return found;
}

// Those of a command line that are about the connection, which is there already.
bool AsksForConnection(const std::vector<std::string>& words) {
    GeneralOptions asked;
    const DescribedProgram described(asked);
    TakeOptionsOf(described.program, words);
    return asked.connect || asked.database || !asked.user.empty() || !asked.password.empty();
}

}  // namespace

std::string NameOfDatabase(const std::string& connection_text) {
    if (LumoConnection::AsksForEmbedded(connection_text)) {
        const auto file = LumoConnection::ReadEmbeddedTarget(connection_text).file;
        return file == ":memory:" ? file : std::filesystem::path(file).filename().string();
    }
    std::string name = "database";
    for (const std::string_view key : {"server", "dsn", "database"}) {
        std::size_t at = 0;
        while (at < connection_text.size()) {
            const auto end = std::min(connection_text.find(';', at), connection_text.size());
            const auto part = connection_text.substr(at, end - at);
            const auto equals = part.find('=');
            if (equals != std::string::npos && FoldCase(part.substr(0, equals)) == key && equals + 1 < part.size()) {
                name = part.substr(equals + 1);
            }
            at = end + 1;
        }
    }
    return name;
}

Console::Console(Context& context)
    : context_(context),
      options_(context.options),
      editor_(HistoryFile(), [this](std::string_view line) { return Complete(line); }) {}

int Console::Run() {
    Open();
    fmt::print("lumoseminar {}: commands, or T-SQL that a ; or a line GO ends. \\? helps, \\q ends.\n", kVersion);
    std::string line;
    while (!ended_) {
        switch (editor_.Read(Prompt(), line)) {
            case LineEditor::Outcome::kEnd:
                ended_ = true;
                break;
            case LineEditor::Outcome::kDropped:
                sql_.Clear();
                break;
            case LineEditor::Outcome::kLine:
                Act(line);
        }
    }
    return kDone;
}

// Where there is no database yet, the command init can make it.
void Console::Open() {
    try {
        context_.Session();
        if (!options_.client) options_.client = context_.Client();
    } catch (const LumoSeminar::Error& error) {
        context_.Report(error);
    }
    context_.options = options_;
}

std::string Console::Prompt() const {
    const auto name = Shorten(Visible(NameOfDatabase(context_.ConnectionText())), 30);
    auto prompt = options_.client ? fmt::format("{} client {}", name, *options_.client) : fmt::format("{} not open", name);
    if (!sql_.IsEmpty())
        prompt = std::string(static_cast<std::size_t>(std::max(0, ScreenWidth(prompt) - 3)), ' ') + "...";
    if (TerminalOf(stdout).colour) prompt = "\1\x1b[1m\1" + prompt + "\1\x1b[0m\1";
    return prompt + "> ";
}

void Console::Act(const std::string& line) {
    const auto words = PartWords(line).words;
    if (sql_.IsEmpty()) {
        if (words.empty()) return;
        if (ActOnWord(words.front(), line)) {
            Remember(line);
            return;
        }
        if (IsCommand(words)) {
            Remember(line);
            RunCommand(words);
            return;
        }
    }
    if (!sql_.Add(line)) return;
    RunSql();
    sql_.Clear();
}

// What is for the console itself. False where the line is something else.
bool Console::ActOnWord(const std::string& word, const std::string& line) {
    const auto Tell = [](const char* what, bool is_on) { fmt::print("{} is {}.\n", what, is_on ? "on" : "off"); };
    if (line.starts_with('\\')) {
        const auto command = line.substr(0, line.find_last_not_of(" \t;") + 1);
        if (command == "\\q") {
            ended_ = true;
        } else if (command == "\\timing") {
            Tell("Timing", timing_ = !timing_);
        } else if (command == "\\trace") {
            Tell("Tracing", options_.trace = !options_.trace);
        } else if (command == "\\?" || command == "\\h" || command == "\\help") {
            fmt::print("{}", kHelp);
        } else {
            fmt::print(stderr, "lumoseminar: There is no {} here; \\? tells what there is.\n", Visible(command));
        }
        return true;
    }
    const auto plain = word.substr(0, word.find(';'));
    if (plain == "exit" || plain == "quit") {
        ended_ = true;
    } else if (plain == "help") {
        fmt::print("{}", kHelp);
    } else {
        return false;
    }
    return true;
}

bool Console::IsCommand(const std::vector<std::string>& words) const {
    GeneralOptions unused;
    const DescribedProgram described(unused);
    const auto& word = words.front();
    if (word == "lumoseminar") return true;
    if (word.starts_with("--")) return described.program.FindOption(word.substr(0, word.find('='))) != nullptr;
    if (described.program.Find(word) != nullptr) return true;
    if (BeginsStatement(word)) return false;
    // A command that is spelt wrong is none that T-SQL would make sense of.
    std::vector<std::string> names;
    for (const auto& command : described.program.Commands()) names.push_back(command.Name());
    return !LikelyMeant(word, names).empty();
}

void Console::RunCommand(std::vector<std::string> words) {
    if (words.front() == "lumoseminar") words.erase(words.begin());
    if (words.empty()) return;
    if (AsksForConnection(words)) {
        fmt::print(stderr, "lumoseminar: The console is connected already; start another one for another database.\n");
        return;
    }
    GeneralOptions unused;
    const DescribedProgram described(unused);
    const auto chosen = ChooseCommand(described.program, words);
    if (chosen.path.size() == 1 && words.front().starts_with("--") && !IsHelpWanted(chosen)) {
        KeepOptions(words);
    } else {
        RunWords(words, false);
    }
    if (!options_.client) Open();
}

void Console::KeepOptions(const std::vector<std::string>& words) {
    auto options = options_;
    try {
        const DescribedProgram described(options);
        ReadWords(ChooseCommand(described.program, words));
        ReadGeneralOptions(options);
    } catch (const UsageError& error) {
        fmt::print(stderr, "lumoseminar: {}\n", Visible(error.what()));
        return;
    }
    if (options.version) fmt::print("lumoseminar {}\n", kVersion);
    options.version = false;
    options_ = options;
    context_.options = options_;
}

void Console::RunSql() {
    auto text = sql_.Text();
    if (text.find_first_not_of(" \t\r\n;") == std::string::npos) return;
    const auto* end = sql_.WantsRecords() ? "\\G" : text.ends_with(';') ? "" : ";";
    std::string line = text + end;
    if (sql_.FitsOneLine()) std::ranges::replace(line, '\n', ' ');
    Remember(line);
    RunWords({"sql", "--", text}, sql_.WantsRecords());
}

void Console::RunWords(const std::vector<std::string>& words, bool records) {
    context_.options = options_;
    context_.options.records = records;
    const auto begin = std::chrono::steady_clock::now();
    Program(context_).Run(words);
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - begin;
    context_.options = options_;
    if (timing_) fmt::print(stderr, "Time: {:.1f} ms\n", took.count());
}

void Console::Remember(const std::string& line) {
    if (line.find("--password") != std::string::npos) return;
    // A line of the history is a line of its file.
    std::string_view rest = line;
    while (!rest.empty()) {
        const auto one = rest.substr(0, rest.find('\n'));
        if (!one.empty()) editor_.Remember(std::string(one));
        rest.remove_prefix(std::min(one.size() + 1, rest.size()));
    }
}

Completion Console::Complete(std::string_view line) {
    // What is asked for names is nobody's statement.
    context_.options.trace = false;
    auto found = Find(line);
    context_.options.trace = options_.trace;
    return found;
}

Completion Console::Find(std::string_view line) {
    Completion found;
    const auto parted = PartTyped(line);
    const bool is_first = parted.words.size() == 1;
    GeneralOptions unused;
    const DescribedProgram described(unused);
    const auto& first = parted.words.front();
    const bool is_command = sql_.IsEmpty() && (first.starts_with("--") || first == "lumoseminar" ||
                                               (is_first ? !first.starts_with('\\') : IsCommand(parted.words)));
    if (is_command) {
        auto words = parted.words;
        if (!is_first && words.front() == "lumoseminar") words.erase(words.begin());
        auto candidates = frontend::Complete(described.program, words, [this](Names what, const CommandPath& path) {
            return NamesIn(context_, what, path);
        });
        if (candidates.files) candidates.all = FilesThatBegin(words.back());
        for (auto& one : candidates.all) one.text = one.text.ends_with('=') ? one.text : AsTyped(one.text);
        found = {parted.last_begins, std::move(candidates.all), " "};
        if (!is_first || !found.candidates.empty()) return found;
    }
    if (sql_.IsEmpty() && first.starts_with('\\')) {
        for (const char* word : {"\\?", "\\q", "\\timing", "\\trace"}) {
            if (std::string_view(word).starts_with(first)) found.candidates.push_back({word, {}});
        }
        return found;
    }
    std::vector<LumoConnection::TableInfo> tables;
    try {
        tables = context_.Tables();
    } catch (const LumoSeminar::Error&) {
        // Words of the language are there without a database.
    }
    const auto text = sql_.Text() + '\n' + std::string(line);
    return {BeginOfIdentifier(line), CompleteSql(text, tables), " "};
}

}  // namespace frontend
