#pragma once

#include <string>
#include <string_view>

struct sqlite3;

namespace LumoConnection::Embedded {

/// Compares two texts as latin1_general_ci_as does: base letters first, then accents; capitals and trailing blanks make
/// no difference; ß is ss. Less than 0, 0 or more.
int CompareTexts(std::string_view a, std::string_view b);

/// True where two single characters (code points) are equal to the collation.
bool SameCharacter(char32_t a, char32_t b);
/// Whether the character lies in the range, in the order of the collation.
bool InRange(char32_t character, char32_t low, char32_t high);

/// Reads one code point and moves on; a byte that is no UTF-8 stands for itself.
char32_t NextCharacter(std::string_view text, std::size_t& at);
void AppendCharacter(std::string& to, char32_t character);

std::string UpperText(std::string_view text);
std::string LowerText(std::string_view text);

/// Gives SQLite's result code.
int AddCollation(sqlite3* database);

}  // namespace LumoConnection::Embedded
