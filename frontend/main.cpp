#include <cstdio>
#include <exception>

#include "frontend/exit_codes.h"
#include "frontend/program.h"

int main(int argc, char** argv) {
    try {
        return frontend::Program().Run(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "lumoseminar: %s\n", error.what());
    } catch (...) {
        std::fputs("lumoseminar: an exception of an unknown type was thrown.\n", stderr);
    }
    return frontend::kRefused;
}
