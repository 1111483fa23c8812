#include <algorithm>
#include <array>

#include <LumoConnection/ascii.h>
#include <LumoConnection/embedded/parser_core.h>
#include <LumoConnection/embedded/refusal.h>

namespace LumoConnection::Embedded {
namespace {

struct KnownFunction {
    std::string_view name;
    Function function;
    std::size_t least;
    std::size_t most;
};

constexpr KnownFunction kFunctions[] = {
    {"isnull", Function::kIsNull, 2, 2},
    {"year", Function::kYear, 1, 1},
    {"month", Function::kMonth, 1, 1},
    {"day", Function::kDay, 1, 1},
    {"datepart", Function::kDatePart, 1, 1},
    {"dateadd", Function::kDateAdd, 2, 2},
    {"datediff", Function::kDateDiff, 2, 2},
    {"str", Function::kStr, 1, 3},
    {"ltrim", Function::kLTrim, 1, 1},
    {"rtrim", Function::kRTrim, 1, 1},
    {"len", Function::kLen, 1, 1},
    {"substring", Function::kSubstring, 3, 3},
    {"upper", Function::kUpper, 1, 1},
    {"lower", Function::kLower, 1, 1},
    {"abs", Function::kAbs, 1, 1},
    {"sign", Function::kSign, 1, 1},
    {"floor", Function::kFloor, 1, 1},
    {"ceiling", Function::kCeiling, 1, 1},
    {"round", Function::kRound, 2, 3},
    {"charindex", Function::kCharIndex, 2, 3},
    {"replace", Function::kReplace, 3, 3},
    {"space", Function::kSpace, 1, 1},
    {"count", Function::kCount, 1, 1},
    {"sum", Function::kSum, 1, 1},
    {"avg", Function::kAvg, 1, 1},
    {"min", Function::kMin, 1, 1},
    {"max", Function::kMax, 1, 1},
    {"left", Function::kLeft, 2, 2},
    {"right", Function::kRight, 2, 2},
    {"nullif", Function::kNullIf, 2, 2},
    {"coalesce", Function::kCoalesce, 2, 1000},
};

std::string Lower(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), LowerAscii);
    return lower;
}

[[noreturn]] void RefuseChain(std::size_t place) {
    Refuse(Refused::kTooDeep,
           "Some part of your SQL statement is nested too deeply. Rewrite the query or break it up into smaller queries.",
           place);
}

}  // namespace

ExpressionPtr Parser::NeedValue(ExpressionPtr expression) const {
    if (IsCondition(*expression)) {
        Refuse(Refused::kSyntax, "Incorrect syntax: a condition stands where a value is expected.", expression->place);
    }
    return expression;
}

ExpressionPtr Parser::NeedCondition(ExpressionPtr expression) const {
    if (!IsCondition(*expression)) {
        const Token& token = Ahead();
        Refuse(Refused::kNoCondition,
               "An expression of non-boolean type specified in a context where a condition is expected, near '" +
                   std::string(token.text.substr(0, 100)) + "'.",
               token.offset);
    }
    return expression;
}

ExpressionPtr Parser::ParseCondition() { return NeedCondition(ParseOr()); }

ExpressionPtr Parser::ParseValue() { return NeedValue(ParseSum()); }

ExpressionPtr Parser::ParseOr() {
    ExpressionPtr first = ParseAnd();
    if (!At(Keyword::kOr)) return first;
    const std::size_t place = Place();
    LogicNode logic{false, {}};
    logic.operands.push_back(NeedCondition(std::move(first)));
    while (Take(Keyword::kOr)) logic.operands.push_back(NeedCondition(ParseAnd()));
    return MakeExpression(std::move(logic), place);
}

ExpressionPtr Parser::ParseAnd() {
    ExpressionPtr first = ParseNot();
    if (!At(Keyword::kAnd)) return first;
    const std::size_t place = Place();
    LogicNode logic{true, {}};
    logic.operands.push_back(NeedCondition(std::move(first)));
    while (Take(Keyword::kAnd)) logic.operands.push_back(NeedCondition(ParseNot()));
    return MakeExpression(std::move(logic), place);
}

ExpressionPtr Parser::ParseNot() {
    if (!At(Keyword::kNot)) return ParseComparison();
    const Deeper deeper(*this);
    const std::size_t place = Place();
    Take(Keyword::kNot);
    return MakeExpression(NotNode{NeedCondition(ParseNot())}, place);
}

ExpressionPtr Parser::ParseComparison() {
    if (At(Keyword::kExists)) {
        const std::size_t place = Place();
        Take(Keyword::kExists);
        return MakeExpression(ExistsNode{ParseBracketedSelect()}, place);
    }
    ExpressionPtr left = ParseSum();
    if (IsCondition(*left)) return left;
    return ParsePredicate(std::move(left));
}

ExpressionPtr Parser::ParsePredicate(ExpressionPtr left) {
    const std::size_t place = Place();
    const auto comparison = [&](Operator op) {
        ++at_;
        if (At(Keyword::kAll) || At(Keyword::kAny) || At(Keyword::kSome)) {
            RefuseNotCovered("A comparison with ALL, ANY or SOME", Place());
        }
        return MakeExpression(BinaryNode{op, std::move(left), ParseValue()}, place);
    };
    switch (Ahead().kind) {
        case TokenKind::kEqual:
            return comparison(Operator::kEqual);
        case TokenKind::kNotEqual:
            return comparison(Operator::kNotEqual);
        case TokenKind::kLess:
            return comparison(Operator::kLess);
        case TokenKind::kLessEqual:
            return comparison(Operator::kLessEqual);
        case TokenKind::kGreater:
            return comparison(Operator::kGreater);
        case TokenKind::kGreaterEqual:
            return comparison(Operator::kGreaterEqual);
        default:
            break;
    }
    if (Take(Keyword::kIs)) {
        const bool negated = Take(Keyword::kNot);
        Expect(Keyword::kNull);
        return MakeExpression(IsNullNode{std::move(left), negated}, place);
    }
    const bool negated = At(Keyword::kNot) && (Ahead(1).keyword == Keyword::kIn || Ahead(1).keyword == Keyword::kLike ||
                                               Ahead(1).keyword == Keyword::kBetween);
    if (negated) ++at_;
    if (Take(Keyword::kBetween)) {
        ExpressionPtr low = ParseValue();
        Expect(Keyword::kAnd);
        return MakeExpression(BetweenNode{std::move(left), std::move(low), ParseValue(), negated}, place);
    }
    if (Take(Keyword::kLike)) {
        LikeNode like{std::move(left), ParseValue(), nullptr, negated};
        if (Take(Keyword::kEscape)) like.escape = ParseValue();
        return MakeExpression(std::move(like), place);
    }
    if (Take(Keyword::kIn)) {
        if (At(TokenKind::kOpen) && Ahead(1).keyword == Keyword::kSelect) {
            return MakeExpression(InSelectNode{std::move(left), ParseBracketedSelect(), negated}, place);
        }
        InListNode in{std::move(left), {}, negated};
        Expect(TokenKind::kOpen);
        do {
            in.values.push_back(ParseValue());
        } while (Take(TokenKind::kComma));
        Expect(TokenKind::kClose);
        return MakeExpression(std::move(in), place);
    }
    return left;
}

ExpressionPtr Parser::ParseSum() {
    ExpressionPtr left = ParseProduct();
    int operators = 0;
    while (At(TokenKind::kPlus) || At(TokenKind::kMinus)) {
        const std::size_t place = Place();
        const Operator op = At(TokenKind::kPlus) ? Operator::kAdd : Operator::kSubtract;
        ++at_;
        if (++operators > kMostOperators) RefuseChain(place);
        left = NeedValue(std::move(left));
        left = MakeExpression(BinaryNode{op, std::move(left), NeedValue(ParseProduct())}, place);
    }
    if (At(Keyword::kCollate)) RefuseNotCovered("COLLATE", Place());
    return left;
}

ExpressionPtr Parser::ParseProduct() {
    ExpressionPtr left = ParseSign();
    int operators = 0;
    while (At(TokenKind::kStar) || At(TokenKind::kSlash) || At(TokenKind::kModulo)) {
        const std::size_t place = Place();
        const Operator op = At(TokenKind::kStar)    ? Operator::kMultiply
                            : At(TokenKind::kSlash) ? Operator::kDivide
                                                    : Operator::kModulo;
        ++at_;
        if (++operators > kMostOperators) RefuseChain(place);
        left = NeedValue(std::move(left));
        left = MakeExpression(BinaryNode{op, std::move(left), NeedValue(ParseSign())}, place);
    }
    return left;
}

ExpressionPtr Parser::ParseSign() {
    const Deeper deeper(*this);
    const std::size_t place = Place();
    if (Take(TokenKind::kPlus)) return NeedValue(ParseSign());
    if (!Take(TokenKind::kMinus)) return ParsePrimary();
    const Token& token = Ahead();
    if (token.kind == TokenKind::kLiteral && token.literal_class != LiteralClass::kText &&
        token.literal_class != LiteralClass::kUnicode) {
        ExpressionPtr literal = ParseLiteral(true);
        literal->place = place;
        return literal;
    }
    return MakeExpression(NegateNode{NeedValue(ParseSign())}, place);
}

ExpressionPtr Parser::ParseLiteral(bool negative) {
    const Token& token = Ahead();
    LiteralNode literal;
    literal.index = token.literal;
    literal.kind = token.literal_class;
    literal.negative = negative;
    if (own_literals_) literal.own = token.doubled ? Undouble(token.text, '\'') : std::string(token.text);
    ++at_;
    return MakeExpression(std::move(literal), token.offset);
}

ExpressionPtr Parser::ParseVariable() {
    const Token& token = Ahead();
    ++at_;
    if (token.text.starts_with("@@")) {
        if (Lower(token.text) == "@@rowcount") return MakeExpression(AmbientNode{Ambient::kRowCount}, token.offset);
        RefuseNotCovered("'" + std::string(token.text) + "'", token.offset);
    }
    return MakeExpression(VariableNode{std::string(token.text)}, token.offset);
}

ExpressionPtr Parser::ParsePrimary() {
    const Token& token = Ahead();
    const std::size_t place = token.offset;
    switch (token.kind) {
        case TokenKind::kLiteral:
            return ParseLiteral(false);
        case TokenKind::kVariable:
            return ParseVariable();
        case TokenKind::kQuoted:
            return ParseNamed();
        case TokenKind::kOpen: {
            if (Ahead(1).keyword == Keyword::kSelect) return MakeExpression(SelectNode{ParseBracketedSelect()}, place);
            const Deeper deeper(*this);
            Expect(TokenKind::kOpen);
            ExpressionPtr inside = ParseOr();
            Expect(TokenKind::kClose);
            return inside;
        }
        case TokenKind::kName:
            break;
        default:
            RefuseHere();
    }
    switch (token.keyword) {
        case Keyword::kNone:
            return ParseNamed();
        case Keyword::kNull:
            ++at_;
            return MakeExpression(NullNode{}, place);
        case Keyword::kCase:
            return ParseCase();
        case Keyword::kConvert:
            return ParseConvert();
        case Keyword::kCurrentTimestamp:
            ++at_;
            return MakeExpression(AmbientNode{Ambient::kNow}, place);
        case Keyword::kSystemUser:
            ++at_;
            return MakeExpression(AmbientNode{Ambient::kUser}, place);
        case Keyword::kLeft:
        case Keyword::kRight:
        case Keyword::kCoalesce:
        case Keyword::kNullif:
            ++at_;
            return ParseCall(token);
        default:
            RefuseHere();
    }
}

ExpressionPtr Parser::ParseNamed() {
    const Token& first = Ahead();
    const std::size_t place = first.offset;
    const bool plain = first.kind == TokenKind::kName;
    if (plain && Ahead(1).kind == TokenKind::kOpen) {
        if (AtWord("cast")) return ParseCast();
        ++at_;
        return ParseCall(first);
    }
    ColumnNode column;
    column.name = Name();
    if (Take(TokenKind::kPoint)) {
        column.table = std::move(column.name);
        column.name = Name();
        if (Take(TokenKind::kPoint)) {
            if (Lower(column.table) != "dbo") RefuseNotCovered("A name of more than two parts", place);
            column.table = std::move(column.name);
            column.name = Name();
        }
    }
    return MakeExpression(std::move(column), place);
}

ExpressionPtr Parser::ParseCall(const Token& name) {
    const Deeper deeper(*this);
    const std::string lower = Lower(name.text);
    const std::size_t place = name.offset;
    Expect(TokenKind::kOpen);
    if (lower == "getdate") {
        Expect(TokenKind::kClose);
        return MakeExpression(AmbientNode{Ambient::kNow}, place);
    }
    const auto* known = std::ranges::find(kFunctions, std::string_view(lower), &KnownFunction::name);
    if (known == std::end(kFunctions)) {
        Refuse(Refused::kUnknownFunction,
               "'" + std::string(name.text) + "' is not a function name that the embedded database covers.", place);
    }
    CallNode call;
    call.function = known->function;
    if (call.function >= Function::kCount) return ParseAggregate(std::move(call), place);
    if (call.function == Function::kDatePart || call.function == Function::kDateAdd || call.function == Function::kDateDiff) {
        if (Ahead().kind != TokenKind::kName) RefuseHere();
        if (!FindDatePart(Ahead().text, call.part)) {
            Refuse(155, "'" + std::string(Ahead().text) + "' is not a recognized " + lower + " option.", Place());
        }
        ++at_;
        Expect(TokenKind::kComma);
    }
    if (!At(TokenKind::kClose)) {
        do {
            call.arguments.push_back(ParseValue());
        } while (Take(TokenKind::kComma));
    }
    Expect(TokenKind::kClose);
    if (call.arguments.size() < known->least || call.arguments.size() > known->most) {
        Refuse(Refused::kArgumentCount,
               "The " + lower + " function requires " +
                   (known->least == known->most ? std::to_string(known->least)
                                                : std::to_string(known->least) + " to " + std::to_string(known->most)) +
                   " argument(s).",
               place);
    }
    return MakeExpression(std::move(call), place);
}

ExpressionPtr Parser::ParseAggregate(CallNode call, std::size_t place) {
    if (call.function == Function::kCount && Take(TokenKind::kStar)) {
        call.star = true;
    } else {
        if (!Take(Keyword::kAll)) call.distinct = Take(Keyword::kDistinct);
        call.arguments.push_back(ParseValue());
    }
    Expect(TokenKind::kClose);
    if (At(Keyword::kOver)) RefuseNotCovered("OVER", Place());
    return MakeExpression(std::move(call), place);
}

ExpressionPtr Parser::ParseCase() {
    const Deeper deeper(*this);
    const std::size_t place = Place();
    CaseNode node;
    Expect(Keyword::kCase);
    if (!At(Keyword::kWhen)) node.operand = ParseValue();
    while (Take(Keyword::kWhen)) {
        CaseNode::Branch branch;
        branch.when = node.operand ? ParseValue() : ParseCondition();
        Expect(Keyword::kThen);
        branch.then = ParseValue();
        node.branches.push_back(std::move(branch));
    }
    if (node.branches.empty()) RefuseHere();
    if (Take(Keyword::kElse)) node.otherwise = ParseValue();
    Expect(Keyword::kEnd);
    return MakeExpression(std::move(node), place);
}

constexpr std::int32_t kCastLength = 30;

ExpressionPtr Parser::ParseCast() {
    const Deeper deeper(*this);
    const std::size_t place = Place();
    ++at_;
    Expect(TokenKind::kOpen);
    CastNode cast;
    cast.operand = ParseValue();
    Expect(Keyword::kAs);
    cast.to = ParseType(kCastLength);
    Expect(TokenKind::kClose);
    return MakeExpression(std::move(cast), place);
}

ExpressionPtr Parser::ParseConvert() {
    const Deeper deeper(*this);
    const std::size_t place = Place();
    ++at_;
    Expect(TokenKind::kOpen);
    CastNode cast;
    cast.to = ParseType(kCastLength);
    Expect(TokenKind::kComma);
    cast.operand = ParseValue();
    if (Take(TokenKind::kComma)) {
        if (!At(TokenKind::kLiteral)) RefuseNotCovered("A style of CONVERT that is no number", Place());
        cast.style = FixedNumber();
    }
    Expect(TokenKind::kClose);
    return MakeExpression(std::move(cast), place);
}

}  // namespace LumoConnection::Embedded
