#include "frontend/cli_test.h"

#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include <test_support/places.h>

namespace frontend {

namespace fs = std::filesystem;
using nlohmann::json;

namespace {

fs::path NewFolder() {
    std::string name = fs::temp_directory_path() / "lumoseminar_cli_XXXXXX";
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for the test");
    return name;
}

// Those that the program reads: a test sets what it wants.
constexpr const char* kSettings[] = {
    "LUMOSEMINAR_CONNECT", "LUMOSEMINAR_PASSWORD", "LUMOSEMINAR_SCHEMA", "NO_COLOR", "COLUMNS", "PAGER"};

// Milliseconds without a sign of the program.
constexpr int kPatience = 30000;

// Holds one sample database, which the tests copy.
fs::path& SampleFolder() {
    static fs::path folder;
    return folder;
}

Outcome RunIn(const fs::path& folder, const Arguments& arguments, const std::string& input, const std::string& environment) {
    WriteAll(folder / "in", input);
    std::string command = "cd " + InShellQuotes(folder) + " && env";
    for (const char* name : kSettings) command.append(" -u ").append(name);
    command += " " + environment + " " + InShellQuotes(test_support::Program());
    for (const auto& argument : arguments) command += " " + InShellQuotes(argument);
    const int status = std::system((command + " <in >out 2>err").c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadAll(folder / "out"), ReadAll(folder / "err")};
}

[[noreturn]] void BecomeProgram(const fs::path& folder, const Arguments& arguments, std::vector<std::string> environment) {
    std::vector<std::string> words = {test_support::Program()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (auto& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    for (const char* name : kSettings) unsetenv(name);
    setenv("TERM", "xterm", 1);
    setenv("PAGER", "cat", 1);
    for (auto& setting : environment) putenv(setting.data());
    if (chdir(folder.c_str()) == 0) execv(pointers.front(), pointers.data());
    _exit(127);
}

}  // namespace

std::string ReadAll(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

void WriteAll(const fs::path& path, std::string_view text) { std::ofstream(path, std::ios::binary) << text; }

std::string InShellQuotes(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

std::size_t Lines(const std::string& text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

Cli::Cli() : folder_(NewFolder()) {}

Cli::~Cli() { fs::remove_all(folder_); }

void Cli::TearDownTestSuite() {
    if (!SampleFolder().empty()) fs::remove_all(SampleFolder());
    SampleFolder().clear();
}

Outcome Cli::Run(const Arguments& arguments, const std::string& input, const std::string& environment) const {
    return RunIn(folder_, arguments, input, environment);
}

Shown Cli::Sit(const Arguments& arguments, const Seat& seat) const {
    const winsize size{seat.rows, seat.columns, 0, 0};
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, &size);
    if (child < 0) throw std::runtime_error("no terminal for the test");
    if (child == 0) BecomeProgram(folder_, arguments, seat.environment);
    Shown shown;
    std::size_t seen = 0;
    auto act = seat.acts.begin();
    const auto ActWhereItIsTime = [&] {
        for (; act != seat.acts.end(); ++act) {
            const auto at = shown.screen.find(act->once_shown, seen);
            if (at == std::string::npos) return;
            seen = at + act->once_shown.size();
            if (act->signal != 0) kill(child, act->signal);
            EXPECT_EQ(write(terminal, act->typed.data(), act->typed.size()), static_cast<ssize_t>(act->typed.size()));
        }
    };
    ActWhereItIsTime();
    bool hangs = false;
    for (pollfd waits{terminal, POLLIN, 0};;) {
        hangs = poll(&waits, 1, kPatience) == 0;
        char buffer[4096];
        const auto count = hangs ? 0 : read(terminal, buffer, sizeof buffer);
        if (count <= 0) break;
        shown.screen.append(buffer, static_cast<std::size_t>(count));
        ActWhereItIsTime();
    }
    if (hangs) kill(child, SIGKILL);
    close(terminal);
    int status = 0;
    waitpid(child, &status, 0);
    if (!hangs) shown.code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    EXPECT_FALSE(hangs) << shown.screen;
    EXPECT_TRUE(act == seat.acts.end()) << "never shown: " << act->once_shown << "\n" << shown.screen;
    return shown;
}

std::string Cli::RunOnTerminal(const Arguments& arguments, const char* no_colour) const {
    Seat seat;
    if (no_colour != nullptr) seat.environment.push_back(std::string("NO_COLOR=") + no_colour);
    const auto shown = Sit(arguments, seat);
    EXPECT_EQ(shown.code, 0) << shown.screen;
    return shown.screen;
}

void Cli::UseSample() const {
    if (SampleFolder().empty()) {
        SampleFolder() = NewFolder();
        const auto made = RunIn(SampleFolder(), {"init", "--sample", "--sample-year", "2009"}, {}, {});
        ASSERT_EQ(made.code, 0) << made.err;
    }
    for (const auto& file : fs::directory_iterator(SampleFolder())) {
        if (file.path().filename().string().starts_with("lumoseminar.db")) {
            fs::copy_file(file, folder_ / file.path().filename());
        }
    }
}

json Cli::Json(Arguments arguments) const {
    arguments.insert(arguments.end(), {"--format", "json"});
    const auto done = Run(arguments);
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.err, "");
    return json::parse(done.out, nullptr, false);
}

json Cli::Seminar(int key) const { return Json({"seminars", "show", std::to_string(key)}); }

int Cli::RowCount() const { return Json({"sql", "select count(*) as n from Sem_Katalog_IT"})[0]["n"]; }

}  // namespace frontend
