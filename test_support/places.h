#pragma once

#include <string>

/// Where the build has put what tests need. The paths stand in one source file: in a definition for all of them, they
/// would keep the compiler cache from knowing the tests again in another folder.
namespace test_support {

/// The root of the source tree.
std::string SourceDir();
/// The file of the driver that plays a script.
const char* ScriptedDriver();
/// The front end.
std::string Program();

}  // namespace test_support
