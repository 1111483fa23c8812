#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace frontend {

/// A line parted into words.
struct Words {
    std::vector<std::string> words;
    /// Where the last word begins in the line.
    std::size_t last_begins = 0;
    /// The quote that is not closed, 0 for none.
    char open_quote = 0;
};

/// Parts a line at its blanks as a shell does: '...' and "..." hold words together, a backslash takes away the meaning
/// of the character behind it.
Words PartWords(std::string_view line);

/// The same for a line that is being typed: behind a blank there is one more word, which is empty.
Words PartTyped(std::string_view line);

/// A word as it has to be typed.
std::string AsTyped(const std::string& word);

}  // namespace frontend
