#include "frontend/console/sql_words.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "frontend/output/screen_text.h"

namespace frontend {

namespace {

constexpr std::string_view kWords[] = {"AND",    "AS",   "ASC",      "BETWEEN", "BY",     "CASE",   "COUNT",  "DECLARE",
                                       "DELETE", "DESC", "DISTINCT", "ELSE",    "END",    "EXISTS", "FROM",   "GROUP",
                                       "HAVING", "IN",   "INNER",    "INSERT",  "INTO",   "IS",     "JOIN",   "LEFT",
                                       "LIKE",   "NOT",  "NULL",     "ON",      "OR",     "ORDER",  "SELECT", "SET",
                                       "THEN",   "TOP",  "UNION",    "UPDATE",  "VALUES", "WHEN",   "WHERE"};

bool IsPart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '@' ||
           c == '#' || (static_cast<unsigned char>(c) & 0x80) != 0;
}

// The identifiers of a text, folded.
std::vector<std::string> Identifiers(std::string_view text) {
    std::vector<std::string> found;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = at;
        while (end < text.size() && IsPart(text[end])) ++end;
        if (end > at) found.push_back(FoldCase(text.substr(at, end - at)));
        at = end + 1;
    }
    return found;
}

}  // namespace

std::size_t BeginOfIdentifier(std::string_view text) {
    std::size_t at = text.size();
    while (at > 0 && IsPart(text[at - 1])) --at;
    return at;
}

std::vector<Candidate> CompleteSql(std::string_view text, const std::vector<LumoConnection::TableInfo>& tables) {
    const auto at = BeginOfIdentifier(text);
    const auto begun = FoldCase(text.substr(at));
    const auto before = Identifiers(text.substr(0, at));
    const bool is_member = at > 0 && text[at - 1] == '.';
    const auto last = before.empty() ? std::string{} : before.back();
    const bool is_table =
        !is_member && (last == "from" || last == "join" || last == "into" || last == "update" || last == "table");
    std::vector<Candidate> found;
    const auto Add = [&](std::string_view name, const std::string& what) {
        const auto IsSame = [&](const Candidate& one) { return one.text == name; };
        if (FoldCase(name).starts_with(begun) && std::ranges::none_of(found, IsSame))
            found.push_back({std::string(name), what});
    };
    const auto IsNamed = [&](const LumoConnection::TableInfo& table) {
        return std::ranges::find(before, FoldCase(table.name)) != before.end();
    };
    if (!is_table) {
        const bool names_table =
            is_member && std::ranges::any_of(tables, [&](const auto& table) { return FoldCase(table.name) == last; });
        const bool names_none = std::ranges::none_of(tables, IsNamed);
        for (const auto& table : tables) {
            // Columns are typed before the tables that they are from.
            const bool is_meant = names_table ? FoldCase(table.name) == last
                                              : IsNamed(table) || (names_none && !begun.empty() && !before.empty());
            if (!is_meant) continue;
            for (const auto& column : table.columns) Add(column.name, column.type);
        }
    }
    if (is_member) return found;
    if (is_table || !begun.empty()) {
        for (const auto& table : tables) Add(table.name, "");
    }
    if (!is_table && !begun.empty()) {
        for (const auto word : kWords) Add(word, "");
    }
    return found;
}

}  // namespace frontend
