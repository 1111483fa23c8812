#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace frontend {

using Arguments = std::vector<std::string>;

std::string ReadAll(const std::filesystem::path& path);
void WriteAll(const std::filesystem::path& path, std::string_view text);
std::string InShellQuotes(const std::string& text);
std::size_t Lines(const std::string& text);

struct Outcome {
    int code = -1;
    std::string out;
    std::string err;
};

/// What somebody does in front of a terminal.
struct Act {
    /// Wait until the screen has shown this, behind what the act before has waited for. Empty: at once.
    std::string once_shown = {};
    /// "yes\n"; "\x03" is Ctrl-C, "\x04" Ctrl-D.
    std::string typed = {};
    /// Sent to the program. 0: none.
    int signal = 0;
};

/// A terminal and who sits in front of it.
struct Seat {
    std::vector<Act> acts = {};
    /// "NAME=VALUE"
    std::vector<std::string> environment = {};
    unsigned short columns = 80;
    unsigned short rows = 24;
};

struct Shown {
    /// The exit code; 128 and the signal where one has ended the program; -1 where it had to be killed, as it went on
    /// without showing anything for half a minute.
    int code = -1;
    /// Both streams, and what was typed, lines ended by "\r\n".
    std::string screen;
};

/// Drives the built program as from a shell, in a folder of its own for each test.
class Cli : public testing::Test {
  public:
    Cli(const Cli&) = delete;
    Cli& operator=(const Cli&) = delete;

  protected:
    Cli();
    ~Cli() override;
    static void TearDownTestSuite();

    /// @param environment settings as they stand before a command
    Outcome Run(const Arguments& arguments, const std::string& input = {}, const std::string& environment = {}) const;

    /// What the program shows on a terminal of 80 columns. It has to end with 0.
    /// @param no_colour value of NO_COLOR, null for none
    std::string RunOnTerminal(const Arguments& arguments, const char* no_colour = nullptr) const;

    /// Runs the program on a terminal.
    Shown Sit(const Arguments& arguments, const Seat& seat = {}) const;

    /// Puts the sample where the program looks for a database without being told.
    void UseSample() const;

    /// The JSON that the program prints. It has to end with 0 and to say nothing else.
    nlohmann::json Json(Arguments arguments) const;

    nlohmann::json Seminar(int key) const;
    /// Of the catalogue.
    int RowCount() const;

    std::filesystem::path folder_;
};

}  // namespace frontend
