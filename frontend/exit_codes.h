#pragma once

#include <stdexcept>

namespace frontend {

inline constexpr int kDone = 0;
/// The library or the database refused something, or a check has findings.
inline constexpr int kRefused = 1;
/// The command line is not one.
inline constexpr int kUsage = 2;

/// What was typed cannot be carried out as it stands: ends the program with kUsage.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// What was typed means more than one thing: ends the program with kRefused. The text lists what it may mean, a line each.
class Undecided : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace frontend
