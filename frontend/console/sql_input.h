#pragma once

#include <string>
#include <string_view>

namespace frontend {

/// Collects lines of T-SQL until they are a text to be run: a line GO, a ; or \G at the end of a line. What stands
/// inside of quotes, brackets and comments does not end it.
class SqlInput {
  public:
    /// @return whether the text is complete
    bool Add(std::string_view line);

    bool IsEmpty() const { return text_.empty(); }
    const std::string& Text() const { return text_; }
    /// Whether \G has ended it: the rows are wanted as records.
    bool WantsRecords() const { return wants_records_; }
    /// Whether it can stand in one line: there is no comment in it that a line ends.
    bool FitsOneLine() const { return fits_one_line_; }

    void Clear() { *this = {}; }

  private:
    // Gives the place behind the last character that counts.
    std::size_t Scan(std::string_view line);

    std::string text_;
    /// What closes the quotes that are open, 0 for none.
    char closing_ = 0;
    int comments_ = 0;
    bool wants_records_ = false;
    bool fits_one_line_ = true;
};

/// Whether a word is one that a statement begins with, in any capitals.
bool BeginsStatement(std::string_view word);

}  // namespace frontend
