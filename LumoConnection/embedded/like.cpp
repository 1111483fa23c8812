#include <LumoConnection/embedded/like.h>

#include <vector>

#include <LumoConnection/embedded/collation.h>
#include <LumoConnection/embedded/refusal.h>

namespace LumoConnection::Embedded {
namespace {

// Reads a set behind its opening bracket and tells whether the character is in it. Moves behind the closing bracket;
// a set without one matches nothing.
bool MatchesSet(std::string_view pattern, std::size_t& at, char32_t character, char32_t escape) {
    const bool negated = at < pattern.size() && pattern[at] == '^';
    if (negated) ++at;
    bool found = false;
    bool closed = false;
    bool first = true;
    while (at < pattern.size()) {
        char32_t low = NextCharacter(pattern, at);
        if (low == U']' && !first) {
            closed = true;
            break;
        }
        first = false;
        if (escape != 0 && low == escape && at < pattern.size()) low = NextCharacter(pattern, at);
        char32_t high = low;
        if (at + 1 < pattern.size() && pattern[at] == '-' && pattern[at + 1] != ']') {
            ++at;
            high = NextCharacter(pattern, at);
        }
        found = found || (low == high ? SameCharacter(character, low) : InRange(character, low, high));
    }
    return closed && found != negated;
}

bool OnlyBlanks(std::string_view text) { return text.find_first_not_of(' ') == std::string_view::npos; }

}  // namespace

// Goes back to the last % only, so that the cost stays at the product of both lengths.
bool MatchesPattern(std::string_view text, std::string_view pattern, bool unicode, std::string_view escape_text) {
    char32_t escape = 0;
    if (!escape_text.empty()) {
        std::size_t end = 0;
        escape = NextCharacter(escape_text, end);
        if (end != escape_text.size()) {
            Refuse(506, "The invalid escape character \"" + std::string(escape_text) + "\" was specified in a LIKE predicate.");
        }
    }
    constexpr std::size_t kNone = std::string_view::npos;
    std::size_t at = 0;
    std::size_t in_pattern = 0;
    std::size_t back_pattern = kNone;
    std::size_t back_text = 0;
    while (true) {
        if (in_pattern == pattern.size()) {
            if (at == text.size() || (!unicode && OnlyBlanks(text.substr(at)))) return true;
        } else if (pattern[in_pattern] == '%') {
            back_pattern = ++in_pattern;
            back_text = at;
            continue;
        } else if (at < text.size()) {
            std::size_t next_text = at;
            std::size_t next_pattern = in_pattern;
            const char32_t character = NextCharacter(text, next_text);
            char32_t wanted = NextCharacter(pattern, next_pattern);
            bool matches = false;
            if (escape != 0 && wanted == escape && next_pattern < pattern.size()) {
                wanted = NextCharacter(pattern, next_pattern);
                matches = SameCharacter(character, wanted);
            } else if (wanted == U'_') {
                matches = true;
            } else if (wanted == U'[') {
                matches = MatchesSet(pattern, next_pattern, character, escape);
            } else {
                matches = SameCharacter(character, wanted);
            }
            if (matches) {
                at = next_text;
                in_pattern = next_pattern;
                continue;
            }
        }
        if (back_pattern == kNone || back_text >= text.size()) return false;
        NextCharacter(text, back_text);
        at = back_text;
        in_pattern = back_pattern;
    }
}

}  // namespace LumoConnection::Embedded
