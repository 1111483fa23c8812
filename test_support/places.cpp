#include <test_support/places.h>

namespace test_support {

std::string SourceDir() { return LUMO_SOURCE_DIR; }

#ifdef LUMO_SCRIPTED_DRIVER
const char* ScriptedDriver() { return LUMO_SCRIPTED_DRIVER; }
#endif

#ifdef LUMO_PROGRAM
std::string Program() { return LUMO_PROGRAM; }
#endif

}  // namespace test_support
