#include <LumoConnection/embedded/shape_reader.h>

#include <functional>

namespace LumoConnection::Embedded {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// What stands in front of a literal ends there in both texts: a digit or the same mark comes next.
bool StartsAlike(char a, char b) { return a == b || (IsDigit(a) && IsDigit(b)); }

}  // namespace

// Texts of one kind begin alike.
std::size_t ShapeReader::PlaceFor(std::string_view text) {
    constexpr std::size_t kBeginning = 32;
    return std::hash<std::string_view>{}(text.substr(0, kBeginning)) % kPlaces;
}

bool ShapeReader::ReadLike(const Known& known, std::string_view text, std::vector<Literal>& literals) {
    if (!known.valid || text.size() > kLongestKept) return false;
    literals.clear();
    const std::string_view before = known.text;
    Scanner scanner(text);
    std::size_t at = 0;
    std::size_t at_before = 0;
    for (const LiteralPlace& place : known.literals) {
        const std::size_t length = place.from - at_before;
        if (text.substr(at, length) != before.substr(at_before, length)) return false;
        at += length;
        if (at >= text.size() || !StartsAlike(text[at], before[place.from])) return false;
        scanner.MoveTo(at);
        const Token token = scanner.Next();
        if (token.kind != TokenKind::kLiteral || token.literal_class != place.literal_class) return false;
        literals.push_back({token.text, token.literal_class, token.doubled});
        at = scanner.Position();
        at_before = place.to;
    }
    return text.substr(at) == before.substr(at_before);
}

bool ShapeReader::Read(std::string_view text, std::string& shape, std::vector<Literal>& literals) {
    Known& known = known_[PlaceFor(text)];
    if (ReadLike(known, text, literals)) {
        shape = known.shape;
        return true;
    }
    places_.clear();
    if (!ReadShape(text, shape, literals, &places_)) return false;
    if (text.size() <= kLongestKept) {
        known.valid = false;
        known.text = text;
        known.shape = shape;
        known.literals = places_;
        known.valid = true;
    }
    return true;
}

}  // namespace LumoConnection::Embedded
