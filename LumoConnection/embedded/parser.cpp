#include <LumoConnection/embedded/parser.h>

#include <algorithm>
#include <charconv>

#include <LumoConnection/ascii.h>
#include <LumoConnection/embedded/parser_core.h>
#include <LumoConnection/embedded/refusal.h>

namespace LumoConnection::Embedded {

Batch ParseBatch(std::string_view text, const Tokens& tokens) { return Parser(text, tokens).ParseWhole(); }

ExpressionPtr ParseOwnExpression(std::string_view text) {
    const Tokens tokens = Tokenise(text);
    return Parser(text, tokens).ParseOwn();
}

Parser::Deeper::Deeper(Parser& parser) : parser_(parser) {
    if (parser_.depth_ >= kMostDepth) {
        Refuse(Refused::kTooDeep,
               "Some part of your SQL statement is nested too deeply. Rewrite the query or break it up into smaller queries.",
               parser_.Place());
    }
    ++parser_.depth_;
}

bool Parser::Take(TokenKind kind) {
    if (!At(kind)) return false;
    ++at_;
    return true;
}

bool Parser::Take(Keyword keyword) {
    if (!At(keyword)) return false;
    ++at_;
    return true;
}

void Parser::Expect(TokenKind kind) {
    if (!Take(kind)) RefuseHere();
}

void Parser::Expect(Keyword keyword) {
    if (!Take(keyword)) RefuseHere();
}

bool Parser::AtWord(std::string_view lower) const {
    const Token& token = Ahead();
    return token.kind == TokenKind::kName && std::ranges::equal(token.text, lower, {}, LowerAscii);
}

bool Parser::TakeWord(std::string_view lower) {
    if (!AtWord(lower)) return false;
    ++at_;
    return true;
}

void Parser::RefuseHere() const {
    const Token& token = Ahead();
    if (token.kind == TokenKind::kEnd) {
        if (at_ == 0) Refuse(Refused::kSyntax, "Incorrect syntax: the text is empty.", token.offset);
        const Token& last = tokens_.tokens[at_ - 1];
        Refuse(Refused::kSyntax,
               "Incorrect syntax near '" + std::string(last.text.substr(0, 100)) + "': the text ends here.", token.offset);
    }
    if (token.keyword != Keyword::kNone) {
        Refuse(Refused::kKeyword, "Incorrect syntax near the keyword '" + std::string(token.text) + "'.", token.offset);
    }
    Refuse(Refused::kSyntax, "Incorrect syntax near '" + std::string(token.text.substr(0, 100)) + "'.", token.offset);
}

bool Parser::AtName() const {
    const Token& token = Ahead();
    return token.kind == TokenKind::kQuoted || (token.kind == TokenKind::kName && token.keyword == Keyword::kNone);
}

std::string Parser::Name() {
    constexpr std::size_t kMostName = 128;
    if (!AtName()) RefuseHere();
    const Token& token = Ahead();
    std::string name(token.text);
    if (token.kind == TokenKind::kQuoted) {
        if (token.text.empty()) {
            Refuse(1038, "An object or column name is missing or empty.", token.offset);
        }
        if (token.doubled) name = Undouble(token.text, text_[token.offset] == '[' ? ']' : '"');
    }
    if (name.size() > kMostName && TextLength(name) > static_cast<std::int64_t>(kMostName)) {
        Refuse(Refused::kTooLongName,
               "The identifier that starts with '" + name.substr(0, BytesOf(name, 100)) + "' is too long. Maximum length is 128.",
               token.offset);
    }
    ++at_;
    return name;
}

// table, dbo.table
std::string Parser::DottedTableName() {
    if (At(TokenKind::kName) && (Ahead().text.front() == '#')) RefuseNotCovered("A temporary table", Place());
    if (At(TokenKind::kVariable)) RefuseNotCovered("A table variable", Place());
    const std::size_t place = Place();
    std::string name = Name();
    if (!At(TokenKind::kPoint)) return name;
    std::string owner = name;
    std::ranges::transform(owner, owner.begin(), LowerAscii);
    Take(TokenKind::kPoint);
    if (owner != "dbo") RefuseNotCovered("The schema or database '" + name + "'", place);
    name = Name();
    if (At(TokenKind::kPoint)) RefuseNotCovered("A name of more than two parts", place);
    return name;
}

std::string Parser::TableName() {
    std::string name = DottedTableName();
    UseTable(name);
    return name;
}

void Parser::NameList(std::vector<std::string>& names) {
    Expect(TokenKind::kOpen);
    do {
        names.push_back(Name());
    } while (Take(TokenKind::kComma));
    Expect(TokenKind::kClose);
}

// A number whose value belongs to the shape.
std::int32_t Parser::FixedNumber() {
    const Token& token = Ahead();
    if (token.kind != TokenKind::kLiteral || token.literal_class != LiteralClass::kInt) RefuseHere();
    std::int32_t value = 0;
    std::from_chars(token.text.data(), token.text.data() + token.text.size(), value);
    batch_.fixed_literals.push_back(token.literal);
    ++at_;
    return value;
}

ExpressionPtr Parser::ParseOwn() {
    own_literals_ = true;
    ExpressionPtr expression = ParseValue();
    if (!At(TokenKind::kEnd)) RefuseHere();
    return expression;
}

Batch Parser::ParseWhole() {
    ParseStatements(batch_.statements, false);
    if (!At(TokenKind::kEnd)) RefuseHere();
    return std::move(batch_);
}

void Parser::ParseStatements(std::vector<StatementPtr>& statements, bool inside_block) {
    while (true) {
        while (Take(TokenKind::kSemicolon)) {
        }
        if (At(TokenKind::kEnd) || (inside_block && At(Keyword::kEnd))) return;
        statements.push_back(ParseStatement());
    }
}

StatementPtr Parser::ParseStatement() {
    const Deeper deeper(*this);
    auto* outer = tables_;
    const std::size_t place = Place();
    std::vector<std::string> tables;
    tables_ = &tables;
    StatementPtr statement = ParseStatementBody();
    tables_ = outer;
    statement->place = place;
    statement->tables = std::move(tables);
    return statement;
}

StatementPtr Parser::ParseStatementBody() {
    auto statement = std::make_unique<Statement>();
    switch (Ahead().keyword) {
        case Keyword::kSelect:
            statement->node = SelectStatement{ParseSelect()};
            break;
        case Keyword::kInsert:
            statement->node = ParseInsert();
            break;
        case Keyword::kUpdate:
            statement->node = ParseUpdate();
            break;
        case Keyword::kDelete:
            statement->node = ParseDelete();
            break;
        case Keyword::kDeclare:
            statement->node = ParseDeclare();
            break;
        case Keyword::kSet:
            statement->node = ParseSet();
            break;
        case Keyword::kIf:
            statement->node = ParseIf();
            break;
        case Keyword::kBegin:
            statement->node = ParseBegin();
            break;
        case Keyword::kCommit:
            statement->node = ParseEndOfTransaction(TransactionStep::kCommit);
            break;
        case Keyword::kRollback:
            statement->node = ParseEndOfTransaction(TransactionStep::kRollback);
            break;
        case Keyword::kCreate:
            statement->node = ParseCreate();
            break;
        case Keyword::kAlter:
            statement->node = ParseAlter();
            break;
        case Keyword::kDrop:
            statement->node = ParseDrop();
            break;
        case Keyword::kExec:
        case Keyword::kExecute:
        case Keyword::kMerge:
        case Keyword::kTruncate:
        case Keyword::kPrint:
        case Keyword::kWhile:
        case Keyword::kReturn:
        case Keyword::kGrant:
        case Keyword::kRevoke:
        case Keyword::kUse:
        case Keyword::kWaitfor:
        case Keyword::kGoto:
        case Keyword::kSave:
        case Keyword::kBackup:
        case Keyword::kBreak:
        case Keyword::kContinue: {
            std::string word(Ahead().text);
            std::ranges::transform(word, word.begin(),
                                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
            RefuseNotCovered("The statement " + word, Place());
        }
        case Keyword::kWith:
            RefuseNotCovered("WITH in front of a statement", Place());
        default:
            if (At(TokenKind::kOpen) && Ahead(1).keyword == Keyword::kSelect) {
                statement->node = SelectStatement{ParseSelect()};
                break;
            }
            RefuseHere();
    }
    return statement;
}

InsertStatement Parser::ParseInsert() {
    InsertStatement insert;
    Expect(Keyword::kInsert);
    Take(Keyword::kInto);
    insert.table = TableName();
    NoHints();
    if (At(TokenKind::kOpen) && Ahead(1).keyword != Keyword::kSelect) {
        Expect(TokenKind::kOpen);
        do {
            insert.column_places.push_back(Place());
            insert.columns.push_back(Name());
        } while (Take(TokenKind::kComma));
        Expect(TokenKind::kClose);
    }
    if (Take(Keyword::kDefault)) {
        Expect(Keyword::kValues);
        insert.default_values = true;
        insert.rows.emplace_back();
        return insert;
    }
    if (At(Keyword::kExec) || At(Keyword::kExecute)) RefuseNotCovered("INSERT with EXECUTE", Place());
    if (!Take(Keyword::kValues)) {
        if (!At(Keyword::kSelect) && !At(TokenKind::kOpen)) RefuseHere();
        insert.select = ParseSelect();
        return insert;
    }
    do {
        std::vector<ExpressionPtr>& row = insert.rows.emplace_back();
        Expect(TokenKind::kOpen);
        do {
            row.push_back(Take(Keyword::kDefault) ? nullptr : ParseValue());
        } while (Take(TokenKind::kComma));
        Expect(TokenKind::kClose);
        constexpr std::size_t kMostRows = 1000;
        if (insert.rows.size() > kMostRows) {
            Refuse(10738, "The number of row value expressions in the INSERT statement exceeds the maximum allowed number of 1000 row values.",
                   Place());
        }
    } while (Take(TokenKind::kComma));
    return insert;
}

UpdateStatement Parser::ParseUpdate() {
    UpdateStatement update;
    Expect(Keyword::kUpdate);
    if (At(Keyword::kTop)) RefuseNotCovered("UPDATE with TOP", Place());
    update.table = DottedTableName();
    NoHints();
    Expect(Keyword::kSet);
    do {
        Assignment assignment;
        assignment.place = Place();
        if (At(TokenKind::kVariable)) RefuseNotCovered("A variable set by UPDATE", Place());
        assignment.column = Name();
        if (Take(TokenKind::kPoint)) assignment.column = Name();
        if ((At(TokenKind::kPlus) || At(TokenKind::kMinus)) && Ahead(1).kind == TokenKind::kEqual) {
            RefuseNotCovered("The operator " + std::string(Ahead().text) + "=", Place());
        }
        Expect(TokenKind::kEqual);
        if (!Take(Keyword::kDefault)) assignment.value = ParseValue();
        update.assignments.push_back(std::move(assignment));
    } while (Take(TokenKind::kComma));
    if (At(Keyword::kFrom)) {
        update.from = ParseFrom();
    } else {
        UseTable(update.table);
    }
    if (Take(Keyword::kWhere)) update.where = ParseCondition();
    return update;
}

DeleteStatement Parser::ParseDelete() {
    DeleteStatement statement;
    Expect(Keyword::kDelete);
    if (At(Keyword::kTop)) RefuseNotCovered("DELETE with TOP", Place());
    Take(Keyword::kFrom);
    statement.table = DottedTableName();
    NoHints();
    if (At(Keyword::kFrom)) {
        statement.from = ParseFrom();
    } else {
        UseTable(statement.table);
    }
    if (Take(Keyword::kWhere)) statement.where = ParseCondition();
    return statement;
}

DeclareStatement Parser::ParseDeclare() {
    DeclareStatement declare;
    Expect(Keyword::kDeclare);
    do {
        DeclareStatement::Variable variable;
        variable.place = Place();
        if (!At(TokenKind::kVariable)) {
            if (AtName()) RefuseNotCovered("A cursor", Place());
            RefuseHere();
        }
        variable.name = Ahead().text;
        ++at_;
        Take(Keyword::kAs);
        if (At(Keyword::kTable)) RefuseNotCovered("A table variable", Place());
        variable.type = ParseType();
        if (Take(TokenKind::kEqual)) variable.value = ParseValue();
        declare.variables.push_back(std::move(variable));
    } while (Take(TokenKind::kComma));
    return declare;
}

Statement::Node Parser::ParseSet() {
    Expect(Keyword::kSet);
    if (At(TokenKind::kVariable)) {
        SetStatement set;
        set.variable = Ahead().text;
        ++at_;
        Expect(TokenKind::kEqual);
        set.value = ParseValue();
        return set;
    }
    const std::size_t place = Place();
    if (TakeWord("nocount")) {
        if (!Take(Keyword::kOn) && !TakeWord("off")) RefuseHere();
        return NothingStatement{};
    }
    if (TakeWord("dateformat")) {
        if (!TakeWord("dmy")) RefuseNotCovered("A date format other than dmy", place);
        return NothingStatement{};
    }
    for (const std::string_view on_by_nature :
         {"quoted_identifier", "ansi_nulls", "ansi_padding", "ansi_warnings", "arithabort", "concat_null_yields_null"}) {
        if (!TakeWord(on_by_nature)) continue;
        if (!Take(Keyword::kOn)) RefuseNotCovered("Another setting than ON", Place());
        return NothingStatement{};
    }
    if (!AtName() && Ahead().kind != TokenKind::kName) RefuseHere();
    RefuseNotCovered("The setting '" + std::string(Ahead().text) + "'", place);
}

IfStatement Parser::ParseIf() {
    IfStatement statement;
    Expect(Keyword::kIf);
    statement.condition = ParseCondition();
    statement.then = ParseStatement();
    while (At(TokenKind::kSemicolon) && Ahead(1).keyword == Keyword::kElse) ++at_;
    if (Take(Keyword::kElse)) statement.otherwise = ParseStatement();
    return statement;
}

Statement::Node Parser::ParseBegin() {
    Expect(Keyword::kBegin);
    if (Take(Keyword::kTran) || Take(Keyword::kTransaction)) {
        if (AtName() && !AtWord("go")) Name();
        return TransactionStatement{TransactionStep::kBegin};
    }
    if (AtWord("try") || AtWord("catch")) RefuseNotCovered("TRY and CATCH", Place());
    BlockStatement block;
    ParseStatements(block.statements, true);
    if (block.statements.empty()) RefuseHere();
    Expect(Keyword::kEnd);
    return block;
}

Statement::Node Parser::ParseEndOfTransaction(TransactionStep step) {
    ++at_;
    if (!Take(Keyword::kTran) && !Take(Keyword::kTransaction)) TakeWord("work");
    if (AtName()) Name();
    return TransactionStatement{step};
}

}  // namespace LumoConnection::Embedded
