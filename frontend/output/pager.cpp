#include "frontend/output/pager.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>

#include "frontend/output/screen_text.h"
#include "frontend/output/terminal.h"

namespace frontend {
namespace {

constexpr const char* kUsualPager = "less";

// A shell ends with these where it cannot run a command.
constexpr int kNotRun = 126;
constexpr int kNotFound = 127;

bool IsInPath(const std::string& program) {
    const char* path = std::getenv("PATH");
    std::istringstream folders(path == nullptr ? "" : path);
    for (std::string folder; std::getline(folders, folder, ':');) {
        if (access((std::filesystem::path(folder) / program).c_str(), X_OK) == 0) return true;
    }
    return false;
}

// Empty for none.
std::string PagerCommand() {
    const char* chosen = std::getenv("PAGER");
    if (chosen == nullptr) return IsInPath(kUsualPager) ? kUsualPager : "";
    return std::string_view(chosen) == "cat" ? "" : chosen;
}

// While a pager runs, the keys that interrupt are its own, and its end is no reason to end.
class Signals {
  public:
    Signals() {
        struct sigaction ignore {};
        ignore.sa_handler = SIG_IGN;
        for (std::size_t i = 0; i < std::size(kSignals); ++i) sigaction(kSignals[i], &ignore, &before_[i]);
    }
    ~Signals() { PutBack(); }
    Signals(const Signals&) = delete;
    Signals& operator=(const Signals&) = delete;

    void PutBack() const {
        for (std::size_t i = 0; i < std::size(kSignals); ++i) sigaction(kSignals[i], &before_[i], nullptr);
    }

  private:
    static constexpr int kSignals[] = {SIGINT, SIGQUIT, SIGPIPE};
    struct sigaction before_[std::size(kSignals)] = {};
};

[[noreturn]] void BecomePager(const std::string& command, int from) {
    dup2(from, STDIN_FILENO);
    close(from);
    // less: end where all fits, show colours, leave the screen as it is.
    setenv("LESS", "FRX", 0);
    setenv("LESSCHARSET", "utf-8", 0);
    execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
    _exit(kNotFound);
}

// False where the pager could not be run.
bool RunPager(const std::string& command, std::string_view text) {
    int pipe_ends[2];
    if (pipe(pipe_ends) != 0) return false;
    const Signals signals;
    const pid_t child = fork();
    if (child == 0) {
        signals.PutBack();
        close(pipe_ends[1]);
        BecomePager(command, pipe_ends[0]);
    }
    close(pipe_ends[0]);
    while (child > 0 && !text.empty()) {
        const auto count = write(pipe_ends[1], text.data(), text.size());
        if (count < 0 && errno == EINTR) continue;
        // Whoever has seen enough leaves the pager.
        if (count < 0) break;
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    close(pipe_ends[1]);
    if (child < 0) return false;
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return !WIFEXITED(status) || (WEXITSTATUS(status) != kNotRun && WEXITSTATUS(status) != kNotFound);
}

bool IsPaged(std::string_view text) {
    const auto terminal = TerminalOf(stdout);
    return terminal.is_terminal && TerminalOf(stdin).is_terminal && IsLongerThan(text, terminal.width, terminal.height);
}

}  // namespace

bool IsLongerThan(std::string_view text, int width, int height) {
    // The last line of the screen is for the prompt behind the text.
    int left = height - 1;
    while (!text.empty()) {
        const auto line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        const int columns = ScreenWidth(line);
        left -= std::max(1, (columns + width - 1) / width);
        if (left < 0) return true;
    }
    return false;
}

void ShowPaged(std::string_view text, bool wanted) {
    if (wanted && IsPaged(text)) {
        const auto command = PagerCommand();
        std::fflush(stdout);
        std::fflush(stderr);
        if (!command.empty() && RunPager(command, text)) return;
    }
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

}  // namespace frontend
