#include "frontend/cli_test.h"

#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
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

// Holds one sample database, which the tests copy.
fs::path& SampleFolder() {
    static fs::path folder;
    return folder;
}

Outcome RunIn(const fs::path& folder, const Arguments& arguments, const std::string& input, const std::string& environment) {
    WriteAll(folder / "in", input);
    std::string command = "cd " + InShellQuotes(folder) +
                          " && env -u LUMOSEMINAR_CONNECT -u LUMOSEMINAR_PASSWORD -u LUMOSEMINAR_SCHEMA -u NO_COLOR " +
                          environment + " " + InShellQuotes(test_support::Program());
    for (const auto& argument : arguments) command += " " + InShellQuotes(argument);
    const int status = std::system((command + " <in >out 2>err").c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadAll(folder / "out"), ReadAll(folder / "err")};
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

std::string Cli::RunOnTerminal(const Arguments& arguments, const char* no_colour) const {
    winsize size{24, 80, 0, 0};
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, &size);
    if (child == 0) {
        std::vector<std::string> words = {test_support::Program()};
        words.insert(words.end(), arguments.begin(), arguments.end());
        std::vector<char*> pointers;
        pointers.reserve(words.size() + 1);
        for (auto& word : words) pointers.push_back(word.data());
        pointers.push_back(nullptr);
        setenv("TERM", "xterm", 1);
        no_colour != nullptr ? setenv("NO_COLOR", no_colour, 1) : unsetenv("NO_COLOR");
        if (chdir(folder_.c_str()) == 0) execv(pointers.front(), pointers.data());
        _exit(127);
    }
    std::string shown;
    char buffer[4096];
    ssize_t count = 0;
    while ((count = read(terminal, buffer, sizeof buffer)) > 0) shown.append(buffer, static_cast<std::size_t>(count));
    close(terminal);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << shown;
    return shown;
}

void Cli::UseSample() const {
    if (SampleFolder().empty()) {
        SampleFolder() = NewFolder();
        const auto made = RunIn(SampleFolder(), {"init", "--sample"}, {}, {});
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
