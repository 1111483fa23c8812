#pragma once

#include <fmt/format.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace frontend {

/// "1 date", "2 dates".
inline std::string Counted(std::size_t count, std::string_view thing) {
    return fmt::format("{} {}{}", count, thing, count == 1 ? "" : "s");
}

}  // namespace frontend
