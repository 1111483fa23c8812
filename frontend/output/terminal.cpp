#include "frontend/output/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace frontend {

Terminal TerminalOf(std::FILE* stream) {
    Terminal terminal;
    const int descriptor = fileno(stream);
    if (isatty(descriptor) == 0) return terminal;
    terminal.is_terminal = true;
    const char* no_colour = std::getenv("NO_COLOR");
    const char* kind = std::getenv("TERM");
    terminal.colour = (no_colour == nullptr || *no_colour == '\0') && (kind == nullptr || std::string_view(kind) != "dumb");
    winsize size{};
    const bool tells = ioctl(descriptor, TIOCGWINSZ, &size) == 0;
    terminal.width = tells && size.ws_col > 0 ? size.ws_col : 80;
    terminal.height = tells && size.ws_row > 0 ? size.ws_row : 24;
    return terminal;
}

}  // namespace frontend
