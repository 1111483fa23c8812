#pragma once

#include <csignal>
#include <iterator>

namespace frontend {

/// While it lives, Ctrl-C and the signals that end a program only leave a note, so that what is half done can be taken
/// back, and a reader that goes away is told by the write that fails. What they did before is what they do afterwards.
class StopSignals {
  public:
    StopSignals();
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    /// The signal that came in. 0: none.
    static int Came();

  private:
    static constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGPIPE};
    struct sigaction before_[std::size(kSignals)] = {};
};

}  // namespace frontend
