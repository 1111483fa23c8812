#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <LumoConnection/embedded/lexer.h>
#include <LumoConnection/embedded/tree.h>

namespace LumoConnection::Embedded {

/// How deep a text may be nested: brackets, sub-selects, blocks.
inline constexpr int kMostDepth = 200;
/// How many operators may follow one another in one expression.
inline constexpr int kMostOperators = 500;

/// Reads a whole text. Refuses an error in the grammar anywhere, with its place.
Batch ParseBatch(std::string_view text, const Tokens& tokens);

/// Reads one expression whose literals stand for themselves: a default, as it stands in a definition.
ExpressionPtr ParseOwnExpression(std::string_view text);

}  // namespace LumoConnection::Embedded
