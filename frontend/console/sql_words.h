#pragma once

#include <LumoConnection/embedded/session.h>

#include <string_view>
#include <vector>

#include "frontend/command_line/complete.h"

namespace frontend {

/// Where the identifier begins that a text ends with; its size where it ends with none.
std::size_t BeginOfIdentifier(std::string_view text);

/// What the identifier at the end of a T-SQL text may become: tables, columns of the tables that the text names, words
/// of the language.
std::vector<Candidate> CompleteSql(std::string_view text, const std::vector<LumoConnection::TableInfo>& tables);

}  // namespace frontend
