#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace frontend {

/// The text as it can stand on one line of a screen: control characters escaped, bytes that are no UTF-8 as U+FFFD.
std::string Visible(std::string_view text);

/// Columns of the screen that a visible text takes.
int ScreenWidth(std::string_view text);

/// The front of the text with "…" behind it, in at most that many columns; the text itself where it fits.
std::string Shorten(std::string_view text, int width);

/// Lines of at most that many columns, parted at blanks, or behind a comma where a word is too long. A word without
/// a comma stays whole.
std::vector<std::string> Wrap(std::string_view text, int width);

/// For comparing without case, umlauts included.
std::string FoldCase(std::string_view text);

}  // namespace frontend
