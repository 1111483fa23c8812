#include <cstdio>
#include <exception>

#include "frontend/exit_codes.h"
#include "frontend/program.h"

int main(int argc, char** argv) {
    try {
        frontend::Context context;
        return frontend::Program(context).Run({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        std::fprintf(stderr, "lumoseminar: %s\n", error.what());
    } catch (...) {
        std::fputs("lumoseminar: An exception of an unknown type was thrown.\n", stderr);
    }
    return frontend::kRefused;
}
