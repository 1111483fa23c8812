// Scanner and parser: any text is read or refused, in one piece, with a place inside the text.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <LumoConnection/embedded/lexer.h>
#include <LumoConnection/embedded/parser.h>
#include <LumoConnection/embedded/refusal.h>

using namespace LumoConnection::Embedded;

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::string shape;
    std::vector<Literal> literals;
    const bool has_shape = ReadShape(text, shape, literals);
    std::optional<Tokens> tokens;
    try {
        tokens = Tokenise(text);
    } catch (const Refusal& refusal) {
        Require(!refusal.Text().empty() && refusal.Place() <= size);
    }
    Require(has_shape == tokens.has_value());
    if (!tokens) return 0;
    Require(literals.size() == tokens->literals.size());
    for (std::size_t i = 0; i < literals.size(); ++i) Require(literals[i].text == tokens->literals[i].text);
    try {
        const Batch batch = ParseBatch(text, *tokens);
        for (const std::uint32_t literal : batch.fixed_literals) Require(literal < literals.size());
    } catch (const Refusal& refusal) {
        Require(!refusal.Text().empty() && (refusal.Place() == kNoPlace || refusal.Place() <= size));
    }
    return 0;
}
