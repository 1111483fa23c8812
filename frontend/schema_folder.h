#pragma once

#include <filesystem>

namespace frontend {

/// The folder of schema.sql, process.sql and their samples: what LUMOSEMINAR_SCHEMA says, otherwise the share folder
/// beside the program, otherwise that of the source tree it was built from.
std::filesystem::path SchemaFolder();

}  // namespace frontend
