#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace frontend {

/// Number of the error for a file that is missing or cannot be read.
inline constexpr std::int32_t kFileNotRead = 53;

/// A whole file. Raises 53 where it cannot be read.
std::string ReadFile(const std::filesystem::path& path);

}  // namespace frontend
