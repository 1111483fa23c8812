#pragma once

#include <filesystem>

/// Where the package lies that the program is linked from statically: what find_package() found tells it to the
/// compiler, as nothing else leads from such a program back to the package.
#ifndef LUMOSEMINAR_PACKAGE_SCHEMA
#define LUMOSEMINAR_PACKAGE_SCHEMA ""
#endif

namespace LumoConnection {

/// The folder of schema.sql, process.sql, sample.sql and process_sample.sql. It is the first of these:
///
/// - the folder that is chosen;
/// - what the environment variable LUMOSEMINAR_SCHEMA says;
/// - share/lumoseminar, or schema, in the folder of the shared library or in one above it;
/// - the same from the program on;
/// - the package that the program was built with.
///
/// The last three have to hold all four files. Raises kFileNotRead (53) where there is none, and names where it looked.
std::filesystem::path SchemaFolder(const std::filesystem::path& chosen = {},
                                   const std::filesystem::path& package = LUMOSEMINAR_PACKAGE_SCHEMA);

}  // namespace LumoConnection
