#pragma once

#include <filesystem>
#include <string>

#include <LumoSeminar/frame/types.h>

namespace LumoConnection {

/// Number of the error for a file that is missing or cannot be read.
inline constexpr LumoSeminar::Int32 kFileNotRead = 53;

/// A whole file. Raises kFileNotRead where it cannot be read.
std::string ReadTextFile(const std::filesystem::path& path);

}  // namespace LumoConnection
