#include <LumoConnection/embedded/parser_core.h>
#include <LumoConnection/embedded/refusal.h>

namespace LumoConnection::Embedded {

SelectPtr Parser::ParseSelect() {
    const Deeper deeper(*this);
    auto select = std::make_unique<Select>();
    select->place = Place();
    ParseSetOperand(*select);
    while (true) {
        SetOperator op = SetOperator::kUnion;
        if (Take(Keyword::kUnion)) {
            op = Take(Keyword::kAll) ? SetOperator::kUnionAll : SetOperator::kUnion;
        } else if (Take(Keyword::kExcept)) {
            op = SetOperator::kExcept;
        } else if (At(Keyword::kIntersect)) {
            // It binds more tightly than the others.
            if (!select->operators.empty() && select->operators.back() != SetOperator::kIntersect) {
                RefuseNotCovered("INTERSECT behind another set operator", Place());
            }
            Take(Keyword::kIntersect);
            op = SetOperator::kIntersect;
        } else {
            break;
        }
        if (select->operators.size() >= static_cast<std::size_t>(kMostOperators)) {
            Refuse(Refused::kTooDeep,
                   "Some part of your SQL statement is nested too deeply. Rewrite the query or break it up into smaller queries.",
                   Place());
        }
        select->operators.push_back(op);
        ParseSetOperand(*select);
    }
    if (At(Keyword::kOrder)) ParseOrderBy(select->order_by);
    if (At(Keyword::kOption)) RefuseNotCovered("OPTION", Place());
    if (AtWord("for") && Ahead(1).kind == TokenKind::kName) RefuseNotCovered("FOR behind a query", Place());
    return select;
}

void Parser::ParseSetOperand(Select& select) {
    if (At(TokenKind::kOpen)) RefuseNotCovered("A query in brackets as a part of another", Place());
    select.cores.push_back(ParseCore());
}

SelectCore Parser::ParseCore() {
    SelectCore core;
    core.place = Place();
    Expect(Keyword::kSelect);
    if (!Take(Keyword::kAll)) core.distinct = Take(Keyword::kDistinct);
    if (Take(Keyword::kTop)) {
        const bool bracketed = Take(TokenKind::kOpen);
        core.top = bracketed ? ParseValue() : ParsePrimary();
        if (bracketed) Expect(TokenKind::kClose);
        if (At(Keyword::kPercent)) RefuseNotCovered("TOP with PERCENT", Place());
        if (At(Keyword::kWith)) RefuseNotCovered("TOP with TIES", Place());
    }
    do {
        core.items.push_back(ParseItem());
    } while (Take(TokenKind::kComma));
    if (At(Keyword::kInto)) RefuseNotCovered("SELECT INTO", Place());
    if (At(Keyword::kFrom)) core.from = ParseFrom();
    if (Take(Keyword::kWhere)) core.where = ParseCondition();
    if (Take(Keyword::kGroup)) {
        Expect(Keyword::kBy);
        do {
            core.group_by.push_back(ParseValue());
        } while (Take(TokenKind::kComma));
        if (At(Keyword::kWith)) RefuseNotCovered("GROUP BY with CUBE or ROLLUP", Place());
    }
    if (Take(Keyword::kHaving)) core.having = ParseCondition();
    return core;
}

SelectItem Parser::ParseItem() {
    SelectItem item;
    item.place = Place();
    if (Take(TokenKind::kStar)) {
        item.what = SelectItem::What::kStar;
        return item;
    }
    if (AtName() && Ahead(1).kind == TokenKind::kPoint && Ahead(2).kind == TokenKind::kStar) {
        item.what = SelectItem::What::kStar;
        item.name = Name();
        at_ += 2;
        return item;
    }
    if (At(TokenKind::kVariable) && Ahead(1).kind == TokenKind::kEqual) {
        item.what = SelectItem::What::kAssign;
        item.variable = Ahead().text;
        at_ += 2;
        item.value = ParseValue();
        return item;
    }
    if (AtName() && Ahead(1).kind == TokenKind::kEqual) {
        item.name = Name();
        ++at_;
        item.value = ParseValue();
        return item;
    }
    item.value = ParseValue();
    item.name = ParseAlias();
    return item;
}

// An alias, with AS or without; a quoted text is one too behind AS.
std::string Parser::ParseAlias() {
    const bool as = Take(Keyword::kAs);
    if (as && At(TokenKind::kLiteral) &&
        (Ahead().literal_class == LiteralClass::kText || Ahead().literal_class == LiteralClass::kUnicode)) {
        const Token& token = Ahead();
        batch_.fixed_literals.push_back(token.literal);
        ++at_;
        return token.doubled ? Undouble(token.text, '\'') : std::string(token.text);
    }
    if (as || AtName()) return Name();
    return {};
}

void Parser::ParseOrderBy(std::vector<OrderItem>& order_by) {
    Expect(Keyword::kOrder);
    Expect(Keyword::kBy);
    do {
        OrderItem item;
        const Token& token = Ahead();
        if (token.kind == TokenKind::kLiteral && token.literal_class == LiteralClass::kInt) {
            batch_.fixed_literals.push_back(token.literal);
        }
        item.value = ParseValue();
        if (At(Keyword::kCollate)) RefuseNotCovered("COLLATE", Place());
        item.descending = Take(Keyword::kDesc);
        if (!item.descending) Take(Keyword::kAsc);
        order_by.push_back(std::move(item));
    } while (Take(TokenKind::kComma));
}

std::vector<Source> Parser::ParseFrom() {
    std::vector<Source> sources;
    Expect(Keyword::kFrom);
    do {
        sources.push_back(ParseJoined());
    } while (Take(TokenKind::kComma));
    return sources;
}

Source Parser::ParseJoined() {
    Source left = ParseSource();
    int joins = 0;
    while (true) {
        const std::size_t place = Place();
        JoinKind kind = JoinKind::kInner;
        if (At(Keyword::kJoin)) {
        } else if (Take(Keyword::kInner)) {
        } else if (Take(Keyword::kLeft)) {
            kind = JoinKind::kLeft;
        } else if (Take(Keyword::kRight)) {
            kind = JoinKind::kRight;
        } else if (Take(Keyword::kFull)) {
            kind = JoinKind::kFull;
        } else if (Take(Keyword::kCross)) {
            kind = JoinKind::kCross;
            if (AtWord("apply")) RefuseNotCovered("CROSS APPLY", place);
        } else {
            return left;
        }
        if (kind != JoinKind::kInner && kind != JoinKind::kCross) Take(Keyword::kOuter);
        Expect(Keyword::kJoin);
        if (++joins > kMostDepth) {
            Refuse(Refused::kTooDeep,
                   "Some part of your SQL statement is nested too deeply. Rewrite the query or break it up into smaller queries.",
                   place);
        }
        auto join = std::make_unique<JoinSource>();
        join->kind = kind;
        join->left = std::move(left);
        join->right = ParseSource();
        if (kind != JoinKind::kCross) {
            if (!At(Keyword::kOn) && (At(Keyword::kInner) || At(Keyword::kLeft) || At(Keyword::kJoin) || At(Keyword::kRight))) {
                RefuseNotCovered("A join inside another without brackets", Place());
            }
            Expect(Keyword::kOn);
            join->on = ParseCondition();
        }
        left = Source();
        left.node = std::move(join);
        left.place = place;
    }
}

Source Parser::ParseSource() {
    const Deeper deeper(*this);
    Source source;
    source.place = Place();
    if (At(TokenKind::kOpen)) {
        if (Ahead(1).keyword == Keyword::kSelect) {
            DerivedSource derived;
            derived.select = ParseBracketedSelect();
            derived.alias = ParseAlias();
            if (derived.alias.empty()) RefuseHere();
            if (At(TokenKind::kOpen)) NameList(derived.columns);
            source.node = std::move(derived);
            return source;
        }
        Expect(TokenKind::kOpen);
        source = ParseJoined();
        Expect(TokenKind::kClose);
        return source;
    }
    TableSource table;
    table.table = TableName();
    if (At(TokenKind::kOpen)) RefuseNotCovered("A function or a hint behind a table name", Place());
    table.alias = ParseAlias();
    NoHints();
    source.node = std::move(table);
    return source;
}

void Parser::NoHints() {
    if (At(Keyword::kWith)) RefuseNotCovered("A hint behind a table name", Place());
}

SelectPtr Parser::ParseBracketedSelect() {
    Expect(TokenKind::kOpen);
    SelectPtr select = ParseSelect();
    Expect(TokenKind::kClose);
    return select;
}

}  // namespace LumoConnection::Embedded
