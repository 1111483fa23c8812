#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace LumoConnection::detail {

/// The text on one line: \r, \n, \t, \\ and \xHH for other control characters and for bytes that are no UTF-8.
std::string OnOneLine(std::string_view text);

/// The first place where two texts differ, the beginning of a whole character in both.
struct TextPlace {
    /// Bytes in front of it.
    std::size_t offset = 0;
    /// From 1, as are line and column. A byte that is no UTF-8 counts as a character.
    std::size_t character = 1;
    std::size_t line = 1;
    std::size_t column = 1;
};

/// The texts must differ.
TextPlace FirstDifference(std::string_view expected, std::string_view actual);

/// "at character 31", with line and column where the texts have several lines.
std::string PlaceText(std::string_view expected, std::string_view actual);

/// Some characters around the first differing place, on one line.
std::string Surroundings(std::string_view text, const TextPlace& place);

/// Three lines: the surroundings of the first differing place in both texts, and a mark below it.
std::string DifferenceLines(std::string_view expected, std::string_view actual);

}  // namespace LumoConnection::detail
