#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "frontend/command_line/complete.h"

namespace frontend {

/// What Tab finds for a line.
struct Completion {
    /// Where in the line the text begins that a candidate takes the place of.
    std::size_t from = 0;
    /// As they are to be typed.
    std::vector<Candidate> candidates;
    /// What comes behind a candidate that is the only one, unless it ends with = or /.
    std::string behind;
};

/// Reads lines from the terminal: keys, a history that outlives the program, Tab.
class LineEditor {
  public:
    /// Gives what the line in front of the cursor may become.
    using Completer = std::function<Completion(std::string_view)>;

    /// @param history  the file; none where it cannot be read or written
    LineEditor(std::filesystem::path history, Completer completer);
    ~LineEditor();
    LineEditor(const LineEditor&) = delete;
    LineEditor& operator=(const LineEditor&) = delete;

    enum class Outcome { kLine, kDropped, kEnd };

    /// @param line  what was typed, without the line break
    /// @return kDropped at Ctrl-C, kEnd at Ctrl-D on an empty line and at the end of the terminal
    Outcome Read(const std::string& prompt, std::string& line);

    /// Puts a line into the history.
    void Remember(const std::string& line);

  private:
    class State;

    std::unique_ptr<State> state_;
};

}  // namespace frontend
