#pragma once

namespace frontend {

/// Of the program: "0.91.0".
inline constexpr const char* kVersion = LUMOSEMINAR_VERSION;

}  // namespace frontend
