#include <LumoConnection/embedded/lexer.h>

#include <algorithm>
#include <array>
#include <unordered_map>

#include <LumoConnection/ascii.h>
#include <LumoConnection/embedded/refusal.h>

namespace LumoConnection::Embedded {
namespace {

enum CharacterClass : std::uint8_t { kOther, kBlank, kLetter, kDigit };

constexpr std::array<std::uint8_t, 256> MakeClasses() {
    std::array<std::uint8_t, 256> classes{};
    for (std::size_t c = 'a'; c <= 'z'; ++c) classes[c] = kLetter;
    for (std::size_t c = 'A'; c <= 'Z'; ++c) classes[c] = kLetter;
    for (std::size_t c = 0x80; c <= 0xFF; ++c) classes[c] = kLetter;
    for (std::size_t c = '0'; c <= '9'; ++c) classes[c] = kDigit;
    for (const char c : {'_', '@', '#', '$'}) classes[static_cast<unsigned char>(c)] = kLetter;
    for (const char c : {' ', '\t', '\r', '\n', '\f', '\v'}) classes[static_cast<unsigned char>(c)] = kBlank;
    return classes;
}

constexpr auto kClasses = MakeClasses();

// What SkipPlain does with a character that a token begins with.
enum class Skip : std::uint8_t { kStop, kOne, kName };

constexpr std::array<Skip, 256> MakeSkips() {
    std::array<Skip, 256> skips{};
    for (std::size_t c = 0; c < skips.size(); ++c) {
        if (kClasses[c] == kBlank) skips[c] = Skip::kOne;
        if (kClasses[c] == kLetter) skips[c] = Skip::kName;
    }
    for (const char c : {',', ';', '(', ')', '+', '*', '%', '=', '<', '>'}) {
        skips[static_cast<unsigned char>(c)] = Skip::kOne;
    }
    skips['$'] = Skip::kStop;
    return skips;
}

constexpr auto kSkips = MakeSkips();

constexpr std::uint8_t ClassOf(char c) { return kClasses[static_cast<unsigned char>(c)]; }
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Ten-thousandths of more whole digits might not fit 64 bits.
constexpr std::size_t kMostWholeDigits = 14;
constexpr std::size_t kMostDecimals = 4;

LiteralClass ClassOfNumber(std::string_view digits, std::size_t point) {
    if (point == std::string_view::npos) {
        while (digits.size() > 1 && digits.front() == '0') digits.remove_prefix(1);
        constexpr std::string_view kGreatestInt = "2147483647";
        if (digits.size() < kGreatestInt.size()) return LiteralClass::kInt;
        if (digits.size() == kGreatestInt.size() && digits <= kGreatestInt) return LiteralClass::kInt;
        return digits.size() <= kMostWholeDigits ? LiteralClass::kDecimal0 : LiteralClass::kLong;
    }
    const std::size_t decimals = digits.size() - point - 1;
    if (point > kMostWholeDigits || decimals > kMostDecimals) return LiteralClass::kLong;
    return static_cast<LiteralClass>(static_cast<std::size_t>(LiteralClass::kDecimal0) + decimals);
}

}  // namespace

void Scanner::SkipBlanksAndComments() {
    const std::size_t size = text_.size();
    while (at_ < size) {
        const char c = text_[at_];
        if (ClassOf(c) == kBlank) {
            ++at_;
        } else if (c == '-' && at_ + 1 < size && text_[at_ + 1] == '-') {
            at_ = std::min(text_.find('\n', at_), size);
        } else if (c == '/' && at_ + 1 < size && text_[at_ + 1] == '*') {
            const std::size_t start = at_;
            std::size_t depth = 1;
            at_ += 2;
            while (depth > 0 && at_ < size) {
                if (text_.compare(at_, 2, "*/") == 0) {
                    --depth;
                    at_ += 2;
                } else if (text_.compare(at_, 2, "/*") == 0) {
                    ++depth;
                    at_ += 2;
                } else {
                    ++at_;
                }
            }
            if (depth > 0) {
                open_comment_ = true;
                at_ = start;
                return;
            }
        } else {
            return;
        }
    }
}

Token Scanner::Finish(TokenKind kind, std::size_t start, std::size_t length) {
    Token token;
    token.kind = kind;
    token.offset = static_cast<std::uint32_t>(start);
    token.text = text_.substr(start, length);
    at_ = start + length;
    return token;
}

Token Scanner::Quoted(char close, TokenKind kind, std::size_t start) {
    Token token;
    token.kind = kind;
    token.offset = static_cast<std::uint32_t>(start);
    const std::size_t inside = at_;
    while (true) {
        const std::size_t end = text_.find(close, at_);
        if (end == std::string_view::npos) {
            Token bad = Finish(TokenKind::kBad, start, text_.size() - start);
            return bad;
        }
        at_ = end + 1;
        if (at_ < text_.size() && text_[at_] == close) {
            token.doubled = true;
            ++at_;
            continue;
        }
        token.text = text_.substr(inside, end - inside);
        return token;
    }
}

Token Scanner::Text(LiteralClass kind, std::size_t start) {
    Token token = Quoted('\'', TokenKind::kLiteral, start);
    if (token.kind == TokenKind::kLiteral) {
        token.literal_class = kind;
        token.literal = literals_++;
    }
    return token;
}

Token Scanner::Number(std::size_t start) {
    std::size_t end = start;
    std::size_t point = std::string_view::npos;
    const std::size_t size = text_.size();
    while (end < size && IsDigit(text_[end])) ++end;
    if (end < size && text_[end] == '.') {
        point = end - start;
        ++end;
        while (end < size && IsDigit(text_[end])) ++end;
    }
    LiteralClass kind = ClassOfNumber(text_.substr(start, end - start), point);
    if (end < size && (text_[end] == 'e' || text_[end] == 'E')) {
        std::size_t exponent = end + 1;
        if (exponent < size && (text_[exponent] == '+' || text_[exponent] == '-')) ++exponent;
        while (exponent < size && IsDigit(text_[exponent])) ++exponent;
        end = exponent;
        kind = LiteralClass::kFloat;
    }
    if (end < size && (ClassOf(text_[end]) == kLetter)) {
        while (end < size && ClassOf(text_[end]) >= kLetter) ++end;
        return Finish(TokenKind::kBad, start, end - start);
    }
    Token token = Finish(TokenKind::kLiteral, start, end - start);
    token.literal_class = kind;
    token.literal = literals_++;
    return token;
}

void Scanner::SkipPlain() {
    const char* at = text_.data() + at_;
    const char* const end = text_.data() + text_.size();
    while (at != end) {
        const Skip skip = kSkips[static_cast<unsigned char>(*at)];
        if (skip == Skip::kOne) {
            ++at;
            continue;
        }
        const bool unicode_text = (*at == 'N' || *at == 'n') && at + 1 != end && at[1] == '\'';
        if (skip == Skip::kStop || unicode_text) break;
        do ++at;
        while (at != end && ClassOf(*at) >= kLetter);
    }
    at_ = static_cast<std::size_t>(at - text_.data());
}

Token Scanner::Next() {
    SkipBlanksAndComments();
    const std::size_t start = at_;
    if (start >= text_.size()) return Finish(TokenKind::kEnd, text_.size(), 0);
    if (open_comment_) return Finish(TokenKind::kBad, start, 2);
    const char c = text_[start];
    const char next = start + 1 < text_.size() ? text_[start + 1] : '\0';
    if (ClassOf(c) == kLetter) {
        if ((c == 'N' || c == 'n') && next == '\'') {
            at_ = start + 2;
            return Text(LiteralClass::kUnicode, start);
        }
        std::size_t end = start + 1;
        while (end < text_.size() && ClassOf(text_[end]) >= kLetter) ++end;
        if (c == '$') return Finish(TokenKind::kBad, start, end - start);
        return Finish(c == '@' ? TokenKind::kVariable : TokenKind::kName, start, end - start);
    }
    if (IsDigit(c) || (c == '.' && IsDigit(next))) return Number(start);
    switch (c) {
        case '\'':
            at_ = start + 1;
            return Text(LiteralClass::kText, start);
        case '[':
            at_ = start + 1;
            return Quoted(']', TokenKind::kQuoted, start);
        case '"':
            at_ = start + 1;
            return Quoted('"', TokenKind::kQuoted, start);
        case ',':
            return Finish(TokenKind::kComma, start, 1);
        case '.':
            return Finish(TokenKind::kPoint, start, 1);
        case ';':
            return Finish(TokenKind::kSemicolon, start, 1);
        case '(':
            return Finish(TokenKind::kOpen, start, 1);
        case ')':
            return Finish(TokenKind::kClose, start, 1);
        case '+':
            return Finish(TokenKind::kPlus, start, 1);
        case '-':
            return Finish(TokenKind::kMinus, start, 1);
        case '*':
            return Finish(TokenKind::kStar, start, 1);
        case '/':
            return Finish(TokenKind::kSlash, start, 1);
        case '%':
            return Finish(TokenKind::kModulo, start, 1);
        case '=':
            return Finish(TokenKind::kEqual, start, 1);
        case '<':
            if (next == '>') return Finish(TokenKind::kNotEqual, start, 2);
            if (next == '=') return Finish(TokenKind::kLessEqual, start, 2);
            return Finish(TokenKind::kLess, start, 1);
        case '>':
            if (next == '=') return Finish(TokenKind::kGreaterEqual, start, 2);
            return Finish(TokenKind::kGreater, start, 1);
        case '!':
            if (next == '=') return Finish(TokenKind::kNotEqual, start, 2);
            if (next == '<') return Finish(TokenKind::kGreaterEqual, start, 2);
            if (next == '>') return Finish(TokenKind::kLessEqual, start, 2);
            break;
        default:
            break;
    }
    return Finish(TokenKind::kBad, start, 1);
}

namespace {

[[noreturn]] void RefuseBad(const Token& token, std::string_view text) {
    const std::size_t place = token.offset;
    const char first = token.text.front();
    if (first == '\'' || ((first == 'N' || first == 'n') && token.text.size() > 1 && token.text[1] == '\'')) {
        const auto shown = token.text.substr(token.text.find('\'') + 1);
        Refuse(Refused::kUnclosedQuote,
               "Unclosed quotation mark after the character string " + std::string("'") + std::string(shown.substr(0, 100)) + "'.",
               place);
    }
    if (first == '[' || first == '"') {
        Refuse(Refused::kUnclosedQuote,
               "Unclosed quotation mark after the character string '" + std::string(token.text.substr(1, 100)) + "'.", place);
    }
    if (text.compare(place, 2, "/*") == 0) {
        Refuse(113, "Missing end comment mark '*/'.", place);
    }
    if (first == '$') RefuseNotCovered("The money literal '" + std::string(token.text) + "'", place);
    Refuse(Refused::kSyntax, "Incorrect syntax near '" + std::string(token.text.substr(0, 100)) + "'.", place);
}

}  // namespace

Tokens Tokenise(std::string_view text) {
    if (text.size() > kMostText) {
        Refuse(Refused::kTooDeep, "The text is longer than " + std::to_string(kMostText) + " bytes.");
    }
    Tokens result;
    result.tokens.reserve(text.size() / 5 + 2);
    Scanner scanner(text);
    while (true) {
        Token token = scanner.Next();
        if (token.kind == TokenKind::kBad) RefuseBad(token, text);
        if (token.kind == TokenKind::kName) token.keyword = FindKeyword(token.text);
        if (token.kind == TokenKind::kLiteral) {
            result.literals.push_back({token.text, token.literal_class, token.doubled});
        }
        result.tokens.push_back(token);
        if (token.kind == TokenKind::kEnd) return result;
    }
}

bool ReadShape(std::string_view text, std::string& shape, std::vector<Literal>& literals, std::vector<LiteralPlace>* places) {
    shape.clear();
    literals.clear();
    if (text.size() > kMostText) return false;
    Scanner scanner(text);
    std::size_t copied = 0;
    while (true) {
        scanner.SkipPlain();
        const Token token = scanner.Next();
        switch (token.kind) {
            case TokenKind::kLiteral:
                shape.append(text, copied, token.offset - copied);
                shape.push_back(static_cast<char>(token.literal_class));
                literals.push_back({token.text, token.literal_class, token.doubled});
                copied = scanner.Position();
                if (places) places->push_back({token.offset, copied, token.literal_class});
                break;
            case TokenKind::kEnd:
                shape.append(text, copied);
                return true;
            case TokenKind::kBad:
                return false;
            default:
                break;
        }
    }
}

std::string Undouble(std::string_view text, char closing) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        result.push_back(text[i]);
        if (text[i] == closing) ++i;
    }
    return result;
}

Keyword FindKeyword(std::string_view name) {
    static const auto& kWords = *new std::unordered_map<std::string_view, Keyword>{
#define LUMO_KEYWORD(word, text) {text, Keyword::k##word},
        LUMO_KEYWORDS(LUMO_KEYWORD)
#undef LUMO_KEYWORD
            {"proc", Keyword::kProcedure},
    };
    constexpr std::size_t kLongest = 20;
    if (name.size() > kLongest) return Keyword::kNone;
    std::array<char, kLongest> lower{};
    std::ranges::transform(name, lower.begin(), LowerAscii);
    const auto found = kWords.find(std::string_view(lower.data(), name.size()));
    return found == kWords.end() ? Keyword::kNone : found->second;
}

}  // namespace LumoConnection::Embedded
