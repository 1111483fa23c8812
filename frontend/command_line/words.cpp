#include "frontend/command_line/words.h"

namespace frontend {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

}  // namespace

Words PartWords(std::string_view line) {
    Words parted;
    bool in_word = false;
    char& quote = parted.open_quote;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const char c = line[at];
        if (quote == 0 && IsBlank(c)) {
            in_word = false;
            continue;
        }
        if (!in_word) {
            in_word = true;
            parted.last_begins = at;
            parted.words.emplace_back();
        }
        auto& word = parted.words.back();
        if (quote != 0 && c == quote) {
            quote = 0;
        } else if (quote == 0 && (c == '\'' || c == '"')) {
            quote = c;
        } else if (c == '\\' && quote != '\'' && at + 1 < line.size() &&
                   (quote == 0 || line[at + 1] == '"' || line[at + 1] == '\\')) {
            word += line[++at];
        } else {
            word += c;
        }
    }
    return parted;
}

Words PartTyped(std::string_view line) {
    auto parted = PartWords(line);
    const bool escaped = line.size() > 1 && line[line.size() - 2] == '\\';
    if (line.empty() || (parted.open_quote == 0 && IsBlank(line.back()) && !escaped)) {
        parted.words.emplace_back();
        parted.last_begins = line.size();
    }
    return parted;
}

std::string AsTyped(const std::string& word) {
    if (!word.empty() && word.find_first_of(" \t'\"\\") == std::string::npos) return word;
    std::string typed = "\"";
    for (const char c : word) {
        if (c == '"' || c == '\\') typed += '\\';
        typed += c;
    }
    return typed + '"';
}

}  // namespace frontend
