#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <LumoConnection/embedded/lexer.h>
#include <LumoConnection/embedded/parser.h>
#include <LumoConnection/embedded/tree.h>

namespace LumoConnection::Embedded {

/// One pass over the tokens of a text, a function per rule of the grammar. Expressions and queries stand in
/// parse_query.cpp, definitions in parse_definition.cpp, the other statements in parser.cpp.
class Parser {
  public:
    Parser(std::string_view text, const Tokens& tokens) : text_(text), tokens_(tokens) {}

    Batch ParseWhole();
    ExpressionPtr ParseOwn();

  private:
    // Tokens.
    const Token& Ahead(std::size_t count = 0) const {
        const std::size_t last = tokens_.tokens.size() - 1;
        return tokens_.tokens[at_ + count < last ? at_ + count : last];
    }
    bool At(TokenKind kind) const { return Ahead().kind == kind; }
    bool At(Keyword keyword) const { return Ahead().keyword == keyword; }
    bool Take(TokenKind kind);
    bool Take(Keyword keyword);
    void Expect(TokenKind kind);
    void Expect(Keyword keyword);
    /// A word that is no reserved word but has a meaning at this place.
    bool AtWord(std::string_view lower) const;
    bool TakeWord(std::string_view lower);
    [[noreturn]] void RefuseHere() const;
    std::size_t Place() const { return Ahead().offset; }

    bool AtName() const;
    std::string Name();
    std::string TableName();
    std::string DottedTableName();
    void NameList(std::vector<std::string>& names);
    std::int32_t FixedNumber();

    // Statements.
    StatementPtr ParseStatement();
    StatementPtr ParseStatementBody();
    void ParseStatements(std::vector<StatementPtr>& statements, bool inside_block);
    InsertStatement ParseInsert();
    UpdateStatement ParseUpdate();
    DeleteStatement ParseDelete();
    DeclareStatement ParseDeclare();
    Statement::Node ParseSet();
    IfStatement ParseIf();
    Statement::Node ParseBegin();
    Statement::Node ParseEndOfTransaction(TransactionStep step);

    // Definitions.
    Statement::Node ParseCreate();
    CreateTableStatement ParseCreateTable(std::size_t start);
    CreateIndexStatement ParseCreateIndex(std::size_t start, bool unique);
    AlterTableStatement ParseAlter();
    Statement::Node ParseDrop();
    void ParseTableElement(TableElements& elements);
    void ParseColumn(TableElements& elements);
    void ParseTableConstraint(TableElements& elements, std::string name);
    bool AtTableConstraint() const;
    ForeignKeyDefinition ParseReferences(std::string name, std::vector<std::string> columns);
    CheckDefinition ParseCheck(std::string name);
    DefaultDefinition ParseDefault(std::string name);
    void ParseKeyColumns(std::vector<std::string>& columns, std::vector<bool>* descending);
    void SkipClustered();
    Type ParseType(std::int32_t default_length = 1);

    // Queries.
    SelectPtr ParseSelect();
    SelectCore ParseCore();
    void ParseSetOperand(Select& select);
    SelectItem ParseItem();
    void ParseOrderBy(std::vector<OrderItem>& order_by);
    std::vector<Source> ParseFrom();
    Source ParseJoined();
    Source ParseSource();
    std::string ParseAlias();
    SelectPtr ParseBracketedSelect();
    void NoHints();

    // Expressions.
    ExpressionPtr ParseCondition();
    ExpressionPtr ParseValue();
    ExpressionPtr ParseOr();
    ExpressionPtr ParseAnd();
    ExpressionPtr ParseNot();
    ExpressionPtr ParseComparison();
    ExpressionPtr ParsePredicate(ExpressionPtr left);
    ExpressionPtr ParseSum();
    ExpressionPtr ParseProduct();
    ExpressionPtr ParseSign();
    ExpressionPtr ParsePrimary();
    ExpressionPtr ParseLiteral(bool negative);
    ExpressionPtr ParseVariable();
    ExpressionPtr ParseNamed();
    ExpressionPtr ParseCall(const Token& name);
    ExpressionPtr ParseCase();
    ExpressionPtr ParseCast();
    ExpressionPtr ParseConvert();
    ExpressionPtr ParseAggregate(CallNode call, std::size_t place);
    ExpressionPtr NeedValue(ExpressionPtr expression) const;
    ExpressionPtr NeedCondition(ExpressionPtr expression) const;
    void UseTable(const std::string& name) {
        if (tables_) tables_->push_back(name);
    }

    class Deeper;

    std::string_view text_;
    const Tokens& tokens_;
    std::size_t at_ = 0;
    int depth_ = 0;
    bool own_literals_ = false;
    std::vector<std::string>* tables_ = nullptr;
    Batch batch_;
};

/// Counts the nesting while it lives; refuses what is too deep.
class Parser::Deeper {
  public:
    explicit Deeper(Parser& parser);
    ~Deeper() { --parser_.depth_; }
    Deeper(const Deeper&) = delete;
    Deeper& operator=(const Deeper&) = delete;

  private:
    Parser& parser_;
};

template <class T>
ExpressionPtr MakeExpression(T node, std::size_t place) {
    auto expression = std::make_unique<Expression>();
    expression->node = std::move(node);
    expression->place = place;
    return expression;
}

}  // namespace LumoConnection::Embedded
