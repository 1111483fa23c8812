#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include <LumoSeminar/frame/types.h>

namespace LumoConnection::Odbc {

/// UTF-16 as the driver manager takes and gives it, without an end mark.
using WideText = std::vector<std::uint16_t>;

/// The text has to be UTF-8.
WideText ToWide(std::string_view text);

/// Half of a pair becomes U+FFFD.
LumoSeminar::Text ToText(const WideText& wide);

}  // namespace LumoConnection::Odbc
