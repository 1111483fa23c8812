#pragma once

#include <string>
#include <string_view>

namespace frontend {

/// A text for a statement: each single quote doubled.
inline std::string Quoted(std::string_view text) {
    std::string doubled;
    doubled.reserve(text.size());
    for (const char c : text) doubled.append(c == '\'' ? 2 : 1, c);
    return doubled;
}

}  // namespace frontend
