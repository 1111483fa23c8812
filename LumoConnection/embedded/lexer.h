#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <LumoConnection/embedded/token.h>

namespace LumoConnection::Embedded {

/// The longest text that is taken, in bytes.
inline constexpr std::size_t kMostText = std::size_t{16} << 20;

/// Cuts a text into tokens, one at a time. Never fails: what is no token comes back as kBad.
class Scanner {
  public:
    explicit Scanner(std::string_view text) : text_(text) {}

    /// The next token; keywords are not told from names here.
    Token Next();

    /// Passes over names, blanks and marks that stand for themselves: all up to the next literal, quoted name or
    /// comment, or what is no token. Next() would give the same tokens one by one.
    void SkipPlain();

    /// Offset behind the token read last.
    std::size_t Position() const { return at_; }

    /// Goes on from there, the beginning of a token.
    void MoveTo(std::size_t position) { at_ = position; }

  private:
    void SkipBlanksAndComments();
    Token Quoted(char close, TokenKind kind, std::size_t start);
    Token Text(LiteralClass kind, std::size_t start);
    Token Number(std::size_t start);
    Token Finish(TokenKind kind, std::size_t start, std::size_t length);

    std::string_view text_;
    std::size_t at_ = 0;
    std::uint32_t literals_ = 0;
    bool open_comment_ = false;
};

/// A text as tokens, an end token last, and its literals in order.
struct Tokens {
    std::vector<Token> tokens;
    std::vector<Literal> literals;
};

/// Refuses what is no token, and a text beyond kMostText.
Tokens Tokenise(std::string_view text);

/// Where a literal stands in a text, with its quotes.
struct LiteralPlace {
    std::size_t from;
    std::size_t to;
    LiteralClass literal_class;
};

/// Writes the shape of a text: the text with each literal replaced by its class. Gives false for a text that
/// Tokenise would refuse.
/// @param places  where to put the places of the literals, too
bool ReadShape(std::string_view text, std::string& shape, std::vector<Literal>& literals,
               std::vector<LiteralPlace>* places = nullptr);

/// The text of a literal or a quoted name with doubled closing characters made single.
std::string Undouble(std::string_view text, char closing);

Keyword FindKeyword(std::string_view name);

}  // namespace LumoConnection::Embedded
