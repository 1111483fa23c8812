#pragma once

#include <cstdint>
#include <string_view>

namespace LumoConnection::Embedded {

// The reserved words of the dialect, each once. A reserved word is a name only in brackets or double quotes.
// clang-format off
#define LUMO_KEYWORDS(X) \
    X(Add, "add") X(All, "all") X(Alter, "alter") X(And, "and") X(Any, "any") X(As, "as") X(Asc, "asc") \
    X(Backup, "backup") X(Begin, "begin") X(Between, "between") X(Break, "break") X(By, "by") \
    X(Cascade, "cascade") X(Case, "case") X(Check, "check") X(Clustered, "clustered") X(Coalesce, "coalesce") \
    X(Collate, "collate") X(Column, "column") X(Commit, "commit") X(Constraint, "constraint") \
    X(Continue, "continue") X(Convert, "convert") X(Create, "create") X(Cross, "cross") \
    X(CurrentTimestamp, "current_timestamp") X(CurrentUser, "current_user") X(Cursor, "cursor") \
    X(Declare, "declare") X(Default, "default") X(Delete, "delete") X(Desc, "desc") X(Distinct, "distinct") \
    X(Drop, "drop") X(Else, "else") X(End, "end") X(Escape, "escape") X(Except, "except") X(Exec, "exec") \
    X(Execute, "execute") X(Exists, "exists") X(Foreign, "foreign") X(From, "from") X(Full, "full") \
    X(Function, "function") X(Goto, "goto") X(Grant, "grant") X(Group, "group") X(Having, "having") \
    X(Identity, "identity") X(If, "if") X(In, "in") X(Index, "index") X(Inner, "inner") X(Insert, "insert") \
    X(Intersect, "intersect") X(Into, "into") X(Is, "is") X(Join, "join") X(Key, "key") X(Left, "left") \
    X(Like, "like") X(Merge, "merge") X(Nonclustered, "nonclustered") X(Not, "not") X(Null, "null") \
    X(Nullif, "nullif") X(On, "on") X(Option, "option") X(Or, "or") X(Order, "order") X(Outer, "outer") \
    X(Over, "over") X(Percent, "percent") X(Primary, "primary") X(Print, "print") X(Procedure, "procedure") \
    X(References, "references") X(Return, "return") X(Revoke, "revoke") X(Right, "right") \
    X(Rollback, "rollback") X(Save, "save") X(Select, "select") X(Set, "set") X(Some, "some") \
    X(SystemUser, "system_user") X(Table, "table") X(Then, "then") X(Top, "top") X(Tran, "tran") \
    X(Transaction, "transaction") X(Trigger, "trigger") X(Truncate, "truncate") X(Union, "union") \
    X(Unique, "unique") X(Update, "update") X(Use, "use") X(User, "user") X(Values, "values") X(View, "view") \
    X(Waitfor, "waitfor") X(When, "when") X(Where, "where") X(While, "while") X(With, "with")
// clang-format on

enum class Keyword : std::uint8_t {
    kNone,
#define LUMO_KEYWORD(name, text) k##name,
    LUMO_KEYWORDS(LUMO_KEYWORD)
#undef LUMO_KEYWORD
};

enum class TokenKind : std::uint8_t {
    kEnd,
    kName,      // also a reserved word, see Token::keyword
    kQuoted,    // [name] or "name"
    kVariable,  // @name
    kLiteral,
    kComma,
    kPoint,
    kSemicolon,
    kOpen,
    kClose,
    kPlus,
    kMinus,
    kStar,
    kSlash,
    kModulo,
    kEqual,
    kNotEqual,
    kLess,
    kLessEqual,
    kGreater,
    kGreaterEqual,
    kBad,
};

/// What kind of value a literal is; this much of a literal belongs to the shape of a statement.
enum class LiteralClass : std::uint8_t {
    kInt = 1,   // fits an int
    kText,      // '...'
    kUnicode,   // N'...'
    kDecimal0,  // whole, beyond int
    kDecimal1,
    kDecimal2,
    kDecimal3,
    kDecimal4,
    kLong,   // more digits than ten-thousandths in 64 bits hold
    kFloat,  // with an exponent
};

/// A literal as it stands in the text: the digits, or what is between the quotes.
struct Literal {
    std::string_view text;
    LiteralClass kind = LiteralClass::kInt;
    /// A text with doubled quotes in it.
    bool doubled = false;
};

struct Token {
    TokenKind kind = TokenKind::kEnd;
    Keyword keyword = Keyword::kNone;
    /// A doubled quote or bracket is in the name or the text.
    bool doubled = false;
    LiteralClass literal_class = LiteralClass::kInt;
    /// Which literal of the text this is, from 0.
    std::uint32_t literal = 0;
    std::uint32_t offset = 0;
    /// As it stands in the source, without quotes or brackets.
    std::string_view text;
};

}  // namespace LumoConnection::Embedded
