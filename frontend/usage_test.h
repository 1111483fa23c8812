#pragma once

#include <string>

#include "frontend/cli_test.h"

namespace frontend {

/// Wrong usage: told on standard error with the command to ask for help, and nothing else.
inline void ExpectUsage(const Outcome& done, const std::string& message, const std::string& command) {
    EXPECT_EQ(done.code, 2) << message;
    EXPECT_EQ(done.out, "");
    EXPECT_EQ(done.err, "lumoseminar: " + message + "\nTry \"lumoseminar " + command + " --help\".\n");
}

}  // namespace frontend
