#pragma once

#include <cstdio>
#include <string>

#include "frontend/output/terminal.h"

namespace frontend {

/// Tells on standard error how far a piece of work is: a bar on a terminal, otherwise one line when it is done.
class Progress {
  public:
    Progress(std::string title, std::size_t steps);
    /// Leaves a bar that did not come to its end standing where it is.
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Step();

    /// All is done; the note says what it came to.
    void Finish(const std::string& note);

  private:
    void Draw() const;

    std::string title_;
    std::size_t steps_;
    std::size_t done_ = 0;
    Terminal terminal_ = TerminalOf(stderr);
    bool finished_ = false;
};

}  // namespace frontend
