#pragma once

#include <string_view>

namespace frontend {

/// Puts a text on standard output. On a terminal one that is longer than the screen goes through the pager that PAGER
/// names, otherwise through less where there is one; PAGER=cat or empty: through none.
/// @param wanted  false: never through a pager
void ShowPaged(std::string_view text, bool wanted = true);

/// Whether a text takes more lines than a screen of that size has.
bool IsLongerThan(std::string_view text, int width, int height);

}  // namespace frontend
