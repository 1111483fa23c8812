#pragma once

#include <string_view>

namespace LumoConnection::Embedded {

/// LIKE: % for any characters, _ for one, [a-f] and [^a-f] for one of a set; capitals make no difference. Blanks at the
/// end of the text count only in Unicode texts; those at the end of the pattern always count.
/// @param escape one character that makes the next one stand for itself, or empty
bool MatchesPattern(std::string_view text, std::string_view pattern, bool unicode, std::string_view escape);

}  // namespace LumoConnection::Embedded
