#include <gtest/gtest.h>

#include <LumoConnection/embedded/lexer.h>
#include <LumoConnection/embedded/refusal.h>

namespace LumoConnection::Embedded {
namespace {

std::string Shown(std::string_view text) {
    std::string shown;
    for (const Token& token : Tokenise(text).tokens) {
        if (token.kind != TokenKind::kEnd) shown += "<" + std::string(token.text) + ">";
    }
    return shown;
}

int NumberOf(std::string_view text, std::size_t place) {
    try {
        Tokenise(text);
    } catch (const Refusal& refusal) {
        EXPECT_EQ(refusal.Place(), place) << text;
        return refusal.Number();
    }
    return 0;
}

TEST(Lexer, CutsATextIntoTokens) {
    EXPECT_EQ(Shown("SELECT a.b,[c d] FROM\"e\"WHERE(@x<=1.5)AND y<>N'z'"),
              "<SELECT><a><.><b><,><c d><FROM><e><WHERE><(><@x><<=><1.5><)><AND><y><<>><z>");
}

TEST(Lexer, PassesOverBothKindsOfComments) { EXPECT_EQ(Shown("1--x 'y\n/* a /* b */ c */2"), "<1><2>"); }

TEST(Lexer, TellsLiteralsByTheirSize) {
    struct Case {
        const char* text;
        LiteralClass kind;
    };
    const Case kCases[] = {
        {"2147483647", LiteralClass::kInt},      {"0000000000007", LiteralClass::kInt},
        {"2147483648", LiteralClass::kDecimal0}, {"123456789012345", LiteralClass::kLong},
        {"5.", LiteralClass::kDecimal0},         {".5", LiteralClass::kDecimal1},
        {"0.1234", LiteralClass::kDecimal4},     {"0.12345", LiteralClass::kLong},
        {"1e3", LiteralClass::kFloat},           {"'1'", LiteralClass::kText},
        {"n'1'", LiteralClass::kUnicode},
    };
    for (const Case& test : kCases) {
        const Tokens tokens = Tokenise(test.text);
        ASSERT_EQ(tokens.literals.size(), 1u) << test.text;
        EXPECT_EQ(tokens.literals[0].kind, test.kind) << test.text;
    }
}

TEST(Lexer, RefusesWhatIsNoTokenWithItsPlace) {
    EXPECT_EQ(NumberOf("SELECT 'a''b", 7), Refused::kUnclosedQuote);
    EXPECT_EQ(NumberOf("SELECT [a]]", 7), Refused::kUnclosedQuote);
    EXPECT_EQ(NumberOf("a /* b", 2), 113);
    EXPECT_EQ(NumberOf("a ? b", 2), Refused::kSyntax);
    EXPECT_EQ(NumberOf(std::string_view("a \0 b", 5), 2), Refused::kSyntax);
    EXPECT_EQ(NumberOf("12abc", 0), Refused::kSyntax);
    EXPECT_EQ(NumberOf("$12.5", 0), Refused::kNotCovered);
}

TEST(Lexer, GivesOneShapeToTextsThatDifferInValuesOnly) {
    const auto shape_of = [](std::string_view text) {
        std::string shape;
        std::vector<Literal> literals;
        EXPECT_TRUE(ReadShape(text, shape, literals)) << text;
        return shape;
    };
    EXPECT_EQ(shape_of("a = 1 AND b = 'x'"), shape_of("a = 234 AND b = 'it''s'"));
    EXPECT_NE(shape_of("a = 1"), shape_of("a = '1'"));
    EXPECT_NE(shape_of("a = 1"), shape_of("a = 1.5"));
    EXPECT_NE(shape_of("a = 1.5"), shape_of("a = 1.25"));
    EXPECT_NE(shape_of("a = '1'"), shape_of("a = N'1'"));
    EXPECT_NE(shape_of("a = 1"), shape_of("a = 2147483648"));
    EXPECT_NE(shape_of("a = 1"), shape_of("a = NULL"));
}

}  // namespace
}  // namespace LumoConnection::Embedded
