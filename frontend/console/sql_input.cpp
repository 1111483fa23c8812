#include "frontend/console/sql_input.h"

#include <algorithm>
#include <iterator>

#include "frontend/output/screen_text.h"

namespace frontend {

namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view Trimmed(std::string_view line) {
    const auto first = line.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return line.substr(first, line.find_last_not_of(kBlanks) - first + 1);
}

char ClosingOf(char c) {
    if (c == '[') return ']';
    return c == '\'' || c == '"' ? c : '\0';
}

}  // namespace

std::size_t SqlInput::Scan(std::string_view line) {
    std::size_t counts = 0;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const auto rest = line.substr(at);
        if (closing_ == 0 && rest.starts_with("/*")) {
            ++comments_;
            ++at;
        } else if (comments_ > 0) {
            if (!rest.starts_with("*/")) continue;
            --comments_;
            ++at;
        } else if (closing_ != 0) {
            // A closing mark that is doubled closes nothing.
            if (rest.starts_with("]]") && closing_ == ']') {
                ++at;
            } else if (line[at] == closing_) {
                closing_ = 0;
            }
            counts = at + 1;
        } else if (rest.starts_with("--")) {
            fits_one_line_ = false;
            break;
        } else if (kBlanks.find(line[at]) == std::string_view::npos) {
            closing_ = ClosingOf(line[at]);
            counts = at + 1;
        }
    }
    return counts;
}

bool SqlInput::Add(std::string_view line) {
    const auto IsNeutral = [&] { return closing_ == 0 && comments_ == 0; };
    if (IsNeutral() && FoldCase(Trimmed(line)) == "go") return true;
    const auto counts = Scan(line);
    const auto end = line.substr(0, counts);
    const bool wants_records = IsNeutral() && end.ends_with("\\G");
    const bool is_complete = wants_records || (IsNeutral() && end.ends_with(';'));
    if (wants_records) line = end.substr(0, end.size() - 2);
    if (!text_.empty()) text_ += '\n';
    text_ += line;
    if (Trimmed(text_).empty()) text_.clear();
    wants_records_ = wants_records;
    return is_complete;
}

bool BeginsStatement(std::string_view word) {
    constexpr std::string_view kWords[] = {"alter",  "begin", "commit",   "create", "declare", "delete",   "drop",
                                           "exec",   "if",    "insert",   "merge",  "print",   "rollback", "save",
                                           "select", "set",   "truncate", "update", "use",     "while",    "with"};
    const auto folded = FoldCase(word);
    return std::find(std::begin(kWords), std::end(kWords), folded) != std::end(kWords);
}

}  // namespace frontend
