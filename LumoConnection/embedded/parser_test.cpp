#include <gtest/gtest.h>

#include <LumoConnection/embedded/parser.h>
#include <LumoConnection/embedded/refusal.h>

namespace LumoConnection::Embedded {
namespace {

struct RefusalCase {
    const char* name;
    std::string text;
    int number;
    std::size_t place;
};

std::string Repeated(std::string_view text, int count) {
    std::string repeated;
    for (int i = 0; i < count; ++i) repeated += text;
    return repeated;
}

const std::vector<RefusalCase>& Refusals() {
    static const auto& kCases = *new std::vector<RefusalCase>{
        {"AValueInPlaceOfATable", "SELECT a FROM 'x'", Refused::kSyntax, 14},
        {"AKeywordAsName", "SELECT a FROM where", Refused::kKeyword, 14},
        {"TheEndTooEarly", "SELECT a FROM", Refused::kSyntax, 13},
        {"AnUnknownStatement", "SELECT 1 SELEC 2", Refused::kSyntax, 15},
        {"AConditionAsValue", "SELECT (1 = 1)", Refused::kSyntax, 10},
        {"AValueAsCondition", "SELECT 1 WHERE 5", Refused::kNoCondition, 16},
        {"ABracketTooMany", "SELECT (1))", Refused::kSyntax, 10},
        {"EndWithoutBegin", "SELECT 1 END", Refused::kKeyword, 9},
        {"AnUnknownFunction", "SELECT 1, foo(2)", Refused::kUnknownFunction, 10},
        {"TooFewArguments", "SELECT isnull(1)", Refused::kArgumentCount, 7},
        {"AnUnknownType", "CREATE TABLE t (a zahl)", Refused::kUnknownType, 18},
        {"ATypeNotCovered", "CREATE TABLE t (a bigint)", Refused::kNotCovered, 18},
        {"AStatementNotCovered", "SELECT 1 MERGE t", Refused::kNotCovered, 9},
        {"TopWithPercent", "SELECT TOP 5 PERCENT a FROM t", Refused::kNotCovered, 13},
        {"ATemporaryTable", "SELECT a FROM #t", Refused::kNotCovered, 14},
        {"AnotherDatabase", "SELECT a FROM other.dbo.t", Refused::kNotCovered, 14},
        {"SelectInto", "SELECT a INTO b FROM t", Refused::kNotCovered, 9},
        {"Over", "SELECT COUNT(*) OVER (PARTITION BY a) FROM t", Refused::kNotCovered, 16},
        {"TooManyBrackets", "SELECT " + Repeated("(", 1000), Refused::kTooDeep, 7 + kMostDepth / 2},
        {"TooManySigns", "SELECT " + Repeated("- ", 1000) + "a", Refused::kTooDeep, 0},
        {"TooManyNots", "SELECT 1 WHERE " + Repeated("NOT ", 1000) + "1=1", Refused::kTooDeep, 0},
        {"ALongChain", "SELECT a" + Repeated("+a", 5000), Refused::kTooDeep, 0},
        {"ALongTailOfSubSelects", Repeated("SELECT (", 1000), Refused::kTooDeep, 0},
        {"TooManyBlocks", Repeated("BEGIN ", 1000), Refused::kTooDeep, 0},
        {"TooManyIfs", Repeated("IF 1=1 ", 1000), Refused::kTooDeep, 0},
    };
    return kCases;
}

class ParserRefusals : public testing::TestWithParam<RefusalCase> {};

TEST_P(ParserRefusals, NameNumberAndPlace) {
    const RefusalCase& test = GetParam();
    const Tokens tokens = Tokenise(test.text);
    try {
        ParseBatch(test.text, tokens);
        FAIL() << "not refused";
    } catch (const Refusal& refusal) {
        EXPECT_EQ(refusal.Number(), test.number) << refusal.Text();
        if (test.number != Refused::kTooDeep) {
            EXPECT_EQ(refusal.Place(), test.place) << refusal.Text();
        }
        EXPECT_LE(refusal.Place(), test.text.size());
        EXPECT_EQ(refusal.Text().find('\n'), std::string::npos);
    }
}

INSTANTIATE_TEST_SUITE_P(All, ParserRefusals, testing::ValuesIn(Refusals()),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(Parser, TakesStatementsOneBehindTheOtherWithAndWithoutSeparators) {
    const auto count = [](std::string_view text) {
        const Tokens tokens = Tokenise(text);
        return ParseBatch(text, tokens).statements.size();
    };
    EXPECT_EQ(count(""), 0u);
    EXPECT_EQ(count(" ;; "), 0u);
    EXPECT_EQ(count("SELECT 1 SELECT 2"), 2u);
    EXPECT_EQ(count("DELETE t DELETE FROM t WHERE a = 1 UPDATE t SET a = 1; SELECT 1;"), 4u);
    EXPECT_EQ(count("IF 1=1 SELECT 1 ELSE SELECT 2 SELECT 3"), 2u);
    EXPECT_EQ(count("BEGIN SELECT 1 SELECT 2 END"), 1u);
}

TEST(Parser, TakesLongConditionsOfManyParts) {
    const std::string text = "SELECT 1 WHERE 1=1" + Repeated(" OR 1=1", 5000);
    const Tokens tokens = Tokenise(text);
    EXPECT_EQ(ParseBatch(text, tokens).statements.size(), 1u);
}

TEST(Parser, MarksTheLiteralsThatBelongToTheShape) {
    const std::string text = "SELECT CONVERT(datetime, '1.1.2010', 104), CAST(a AS varchar(7)), 5 FROM t ORDER BY 2";
    const Tokens tokens = Tokenise(text);
    std::string fixed;
    for (const std::uint32_t literal : ParseBatch(text, tokens).fixed_literals) {
        fixed += std::string(tokens.literals[literal].text) + " ";
    }
    EXPECT_EQ(fixed, "104 7 2 ");
}

}  // namespace
}  // namespace LumoConnection::Embedded
