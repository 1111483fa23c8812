#include "frontend/tour/pause.h"

#include <fmt/format.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "frontend/tour/interruption.h"

namespace frontend {

namespace {

// Keys come at once and are not shown.
class KeyByKey {
  public:
    KeyByKey() {
        if (tcgetattr(STDIN_FILENO, &before_) != 0) return;
        termios now = before_;
        now.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
        now.c_cc[VMIN] = 1;
        now.c_cc[VTIME] = 0;
        changed_ = tcsetattr(STDIN_FILENO, TCSANOW, &now) == 0;
    }
    KeyByKey(const KeyByKey&) = delete;
    KeyByKey& operator=(const KeyByKey&) = delete;
    ~KeyByKey() {
        if (changed_) tcsetattr(STDIN_FILENO, TCSANOW, &before_);
    }

  private:
    termios before_ = {};
    bool changed_ = false;
};

constexpr char kEndOfInput = '\x04';

// The next key; the end of the input where there is none.
char Key() {
    for (;;) {
        CheckInterruption();
        // Ended by signals: a second at most goes by where one comes in between the check and the wait.
        pollfd waits{STDIN_FILENO, POLLIN, 0};
        const int ready = poll(&waits, 1, 1000);
        if (ready < 0 && errno != EINTR) return kEndOfInput;
        if (ready <= 0) continue;
        char key = 0;
        return read(STDIN_FILENO, &key, 1) == 1 ? key : kEndOfInput;
    }
}

// Clears the line on the way out.
struct ShownLine {
    explicit ShownLine(std::string_view line) {
        fmt::print("{}", line);
        std::fflush(stdout);
    }
    ShownLine(const ShownLine&) = delete;
    ShownLine& operator=(const ShownLine&) = delete;
    ~ShownLine() {
        std::fputs("\r\x1b[K", stdout);
        std::fflush(stdout);
    }
};

}  // namespace

bool IsSomebodyThere() { return isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0; }

bool WaitForEnter(std::string_view line) {
    const KeyByKey keys;
    const ShownLine shown(line);
    for (;;) {
        switch (Key()) {
            case '\n':
            case '\r':
                return true;
            case 'q':
            case 'Q':
            case kEndOfInput:
                return false;
            default:
                break;
        }
    }
}

}  // namespace frontend
