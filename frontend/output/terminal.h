#pragma once

#include <cstdio>

namespace frontend {

/// What a stream can show.
struct Terminal {
    bool is_terminal = false;
    /// Only on a terminal, and not where NO_COLOR is set.
    bool colour = false;
    /// 80 where the terminal does not tell, 0 for a stream that is none.
    int width = 0;
    /// Lines; 24 where the terminal does not tell, 0 for a stream that is none.
    int height = 0;
};

Terminal TerminalOf(std::FILE* stream);

}  // namespace frontend
