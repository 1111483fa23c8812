#pragma once

#include <cstddef>
#include <string_view>

namespace LumoConnection {

/// Offset of the first byte that is no UTF-8; npos where all is.
std::size_t FirstBadByte(std::string_view text);

}  // namespace LumoConnection
