#pragma once

#include <string>
#include <string_view>

#include "frontend/output/screen_text.h"

namespace frontend {

/// Looks for a text in others; capitals are not told apart, umlauts included. The empty text is everywhere.
class TextFilter {
  public:
    explicit TextFilter(std::string_view wanted) : wanted_(FoldCase(wanted)) {}

    bool IsEmpty() const { return wanted_.empty(); }
    bool FindsIn(std::string_view text) const { return IsEmpty() || FoldCase(text).find(wanted_) != std::string::npos; }

  private:
    std::string wanted_;
};

}  // namespace frontend
