#pragma once

#include <algorithm>
#include <string_view>

namespace LumoConnection {

constexpr char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

/// Compares without regard to the capitals of A to Z.
constexpr bool SameWithoutCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, LowerAscii, LowerAscii);
}

}  // namespace LumoConnection
