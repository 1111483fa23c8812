#pragma once

#include <csignal>
#include <iterator>

namespace frontend {

/// Thrown by the tour between two calls, so that what it has added is taken back on the way out.
struct TourInterrupted {};

/// While it lives, Ctrl-C and the signals that end a program only leave a note, and a reader that goes away is told by
/// the write that fails. What they did before is what they do afterwards.
class Interruption {
  public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    /// The signal that came in. 0: none.
    static int Signal();

    /// Throws TourInterrupted where a signal came in.
    static void Check();

  private:
    static constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGPIPE};
    struct sigaction before_[std::size(kSignals)] = {};
};

}  // namespace frontend
