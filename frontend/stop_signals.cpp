#include "frontend/stop_signals.h"

namespace frontend {

namespace {

volatile std::sig_atomic_t g_came = 0;

void Note(int signal) { g_came = signal; }

}  // namespace

StopSignals::StopSignals() {
    g_came = 0;
    for (std::size_t i = 0; i < std::size(kSignals); ++i) {
        struct sigaction noting = {};
        noting.sa_handler = kSignals[i] == SIGPIPE ? SIG_IGN : Note;
        // Writes go on; a wait for a key ends all the same.
        noting.sa_flags = SA_RESTART;
        sigaction(kSignals[i], &noting, &before_[i]);
        // What was ignored from the start stays so.
        if (before_[i].sa_handler == SIG_IGN) sigaction(kSignals[i], &before_[i], nullptr);
    }
}

StopSignals::~StopSignals() {
    for (std::size_t i = 0; i < std::size(kSignals); ++i) sigaction(kSignals[i], &before_[i], nullptr);
}

int StopSignals::Came() { return g_came; }

}  // namespace frontend
