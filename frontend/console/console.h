#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frontend/console/line_editor.h"
#include "frontend/console/sql_input.h"
#include "frontend/context.h"

namespace frontend {

/// Carries out command lines and T-SQL that are typed at a terminal, on one session.
class Console {
  public:
    /// @param context  with the general options that count for all lines
    explicit Console(Context& context);

    /// Ends where somebody says so.
    /// @return the exit code
    int Run();

  private:
    void Open();
    std::string Prompt() const;
    void Act(const std::string& line);
    bool ActOnWord(const std::string& word, const std::string& line);
    bool IsCommand(const std::vector<std::string>& words) const;
    void RunCommand(std::vector<std::string> words);
    void KeepOptions(const std::vector<std::string>& words);
    void RunSql();
    void RunWords(const std::vector<std::string>& words, bool records);
    void Remember(const std::string& line);
    Completion Complete(std::string_view line);
    Completion Find(std::string_view line);

    Context& context_;
    /// What counts for a line that says nothing else.
    GeneralOptions options_;
    LineEditor editor_;
    SqlInput sql_;
    bool timing_ = false;
    bool ended_ = false;
};

/// What the prompt calls the database of a connection text: a file without its folder, a database, a source of data.
std::string NameOfDatabase(const std::string& connection_text);

}  // namespace frontend
