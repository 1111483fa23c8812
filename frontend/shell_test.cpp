#include "frontend/shell_test.h"

#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <sstream>
#include <stdexcept>

namespace frontend {

namespace {

[[noreturn]] void BecomeShell(const ShellCommand& command) {
    for (const char* name : {"LUMOSEMINAR_CONNECT", "LUMOSEMINAR_PASSWORD", "LUMOSEMINAR_SCHEMA"}) unsetenv(name);
    setenv("TERM", "xterm", 1);
    setenv("NO_COLOR", "1", 1);
    setenv("PAGER", "cat", 1);
    const std::string line = (command.typed.empty() ? "exec </dev/null; " : "") + command.line;
    if (chdir(command.folder.c_str()) == 0) execl("/bin/sh", "sh", "-c", line.c_str(), nullptr);
    _exit(127);
}

// What stays on the screen of a line in which the cursor went back to the front.
std::string AsItStays(const std::string& line) {
    std::string screen;
    std::size_t at = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '\r') {
            at = 0;
        } else if (line.compare(i, 3, "\x1b[K") == 0) {
            screen.erase(at);
            i += 2;
        } else {
            screen.replace(at, at < screen.size() ? 1 : 0, 1, line[i]);
            ++at;
        }
    }
    return screen.substr(0, screen.find_last_not_of(' ') + 1);
}

}  // namespace

ShellResult RunShell(const ShellCommand& command) {
    const winsize size{1000, command.columns, 0, 0};
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, &size);
    if (child < 0) throw std::runtime_error("no terminal for the test");
    if (child == 0) BecomeShell(command);
    std::string shown;
    bool waiting = !command.typed.empty();
    char buffer[4096];
    ssize_t count = 0;
    while ((count = read(terminal, buffer, sizeof buffer)) > 0) {
        shown.append(buffer, static_cast<std::size_t>(count));
        if (!waiting || shown.find(command.once_shown) == std::string::npos) continue;
        waiting = write(terminal, command.typed.data(), command.typed.size()) < 0;
    }
    close(terminal);
    int status = 0;
    waitpid(child, &status, 0);
    ShellResult result{WIFEXITED(status) ? WEXITSTATUS(status) : -1, {}};
    std::istringstream lines(shown);
    for (std::string line; std::getline(lines, line);) result.screen += AsItStays(line) + '\n';
    return result;
}

}  // namespace frontend
