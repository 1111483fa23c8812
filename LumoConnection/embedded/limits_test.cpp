#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include <LumoConnection/embedded/lexer.h>
#include <LumoConnection/embedded/session.h>
#include <test_support/embedded.h>

namespace LumoConnection {
namespace {

constexpr const char* kTooDeep =
    "Some part of your SQL statement is nested too deeply. Rewrite the query or break it up into smaller queries.";
constexpr std::size_t kMany = 100'000;

std::string Repeated(const std::string& text, std::size_t times) {
    std::string all;
    for (std::size_t i = 0; i < times; ++i) all += text;
    return all;
}

struct DeepText {
    const char* name;
    std::string text;
};

class EmbeddedLimits : public testing::TestWithParam<DeepText> {};

TEST_P(EmbeddedLimits, RefusesWhatIsNestedTooDeeply) {
    auto session = test_support::EmptyDatabase();
    ASSERT_TRUE(session->ExecuteSql("CREATE TABLE T (a int)"));
    EXPECT_FALSE(session->OpenSelect(GetParam().text));
    EXPECT_EQ(session->LastErrorNumber(), 191) << session->LastErrorText().substr(0, 200);
    EXPECT_EQ(session->LastErrorText(), kTooDeep);
    EXPECT_TRUE(session->OpenSelect("SELECT * FROM T")) << session->LastErrorText();
}

INSTANTIATE_TEST_SUITE_P(
    All, EmbeddedLimits,
    testing::Values(
        DeepText{"Brackets", "SELECT " + Repeated("(", kMany) + "1" + Repeated(")", kMany)},
        DeepText{"Signs", "SELECT " + Repeated("- ", kMany) + "1"},
        DeepText{"Sums", "SELECT 1" + Repeated(" + 1", kMany)}, DeepText{"Products", "SELECT 1" + Repeated(" * 1", kMany)},
        DeepText{"Negations", "SELECT 1 WHERE " + Repeated("NOT ", kMany) + "1 = 1"},
        DeepText{"Conditions", "SELECT 1 WHERE " + Repeated("(1 = 1 AND ", kMany) + "1 = 1" + Repeated(")", kMany)},
        DeepText{"Calls", "SELECT " + Repeated("ABS(", kMany) + "1" + Repeated(")", kMany)},
        DeepText{"Cases", "SELECT " + Repeated("CASE WHEN 1 = 1 THEN ", kMany) + "1" + Repeated(" END", kMany)},
        DeepText{"Casts", "SELECT " + Repeated("CAST(", kMany) + "1" + Repeated(" AS int)", kMany)},
        DeepText{"SubSelects", "SELECT " + Repeated("(SELECT ", kMany) + "1" + Repeated(")", kMany)},
        DeepText{"Exists", "SELECT 1 WHERE " + Repeated("EXISTS (SELECT * FROM T WHERE ", kMany) + "1 = 1" + Repeated(")", kMany)},
        DeepText{"DerivedTables", "SELECT * FROM " + Repeated("(SELECT * FROM ", 1000) + "T" + Repeated(") x", 1000)},
        DeepText{"Joins", "SELECT 1 FROM T" + Repeated(" JOIN T t1 ON 1 = 1", kMany)},
        DeepText{"Blocks", Repeated("BEGIN ", kMany) + "SELECT 1" + Repeated(" END", kMany)},
        DeepText{"Choices", Repeated("IF 1 = 1 ", kMany) + "SELECT 1"},
        DeepText{"OtherChoices", Repeated("IF 1 = 0 SELECT 0 ELSE ", kMany) + "SELECT 1"}),
    [](const auto& tested) { return tested.param.name; });

TEST(EmbeddedLimit, TakesATextOfTheGreatestSizeAndNoneBeyond) {
    auto session = test_support::EmptyDatabase();
    const std::string start = "SELECT LEN('";
    const std::string end = "')";
    const std::size_t room = Embedded::kMostText - start.size() - end.size();
    ASSERT_TRUE(session->OpenSelect(start + std::string(room, 'x') + end)) << session->LastErrorText();
    EXPECT_EQ(session->Recordset()->Fields().Item(Int16{0}).Value(), Variant(static_cast<Int32>(room)));
    EXPECT_FALSE(session->OpenSelect(start + std::string(room + 1, 'x') + end));
    EXPECT_EQ(session->LastErrorText(), "The text is longer than 16777216 bytes.");
    EXPECT_TRUE(session->OpenSelect("SELECT 1"));
}

TEST(EmbeddedLimit, RefusesValuesThatGrowBeyondAllBounds) {
    auto session = test_support::EmptyDatabase();
    std::string value = "SPACE(8000)";
    for (int i = 0; i < 3; ++i) value = "REPLACE(" + value + ", ' ', SPACE(8000))";
    EXPECT_FALSE(session->OpenSelect("SELECT LEN(" + value + ")"));
    EXPECT_EQ(session->LastErrorText(), "A value or a text is longer than the database can hold.");
}

TEST(EmbeddedLimit, ManyStatementsAreNoDepth) {
    auto session = test_support::EmptyDatabase();
    ASSERT_TRUE(session->ExecuteSql("CREATE TABLE T (a int)"));
    EXPECT_TRUE(session->ExecuteSql(Repeated("INSERT INTO T VALUES (1) ", 2000))) << session->LastErrorText();
    EXPECT_EQ(session->LookupValue("COUNT(*)", "T", ""), Variant(Int32{2000}));
}

// A statement is judged by the tables as they are when it is reached.
TEST(EmbeddedBatch, SeesWhatItsOwnStatementsDoToTables) {
    auto session = test_support::EmptyDatabase();
    ASSERT_TRUE(session->ExecuteSql("CREATE TABLE T (a int NOT NULL PRIMARY KEY) INSERT INTO T VALUES (1)"));
    EXPECT_FALSE(session->ExecuteSql("INSERT INTO T VALUES (2) DROP TABLE T SELECT * FROM T"));
    EXPECT_EQ(session->LastErrorNumber(), 208) << session->LastErrorText();
    ASSERT_TRUE(session->ExecuteSql("CREATE TABLE T (a int NOT NULL PRIMARY KEY) INSERT INTO T VALUES (1)"));
    EXPECT_FALSE(session->ExecuteSql("ALTER TABLE T ADD b int NULL INSERT INTO T VALUES (2, 2) INSERT INTO T VALUES (1, 5)"));
    EXPECT_EQ(session->LastErrorNumber(), 2627) << session->LastErrorText();
    EXPECT_EQ(session->LookupValue("b", "T", "a = 2"), Variant(Int32{2}));
}

TEST(EmbeddedBatch, SaysThatWhatFollowsATakenBackDefinitionDoesNotRun) {
    auto session = test_support::EmptyDatabase();
    ASSERT_TRUE(session->ExecuteSql("CREATE TABLE T (a int)"));
    EXPECT_TRUE(session->ExecuteSql("BEGIN TRANSACTION CREATE TABLE U (a int) ROLLBACK"));
    EXPECT_FALSE(session->ExecuteSql("BEGIN TRANSACTION CREATE TABLE U (a int) ROLLBACK INSERT INTO T VALUES (1)"));
    EXPECT_EQ(session->LastErrorText(), "ROLLBACK took back changes of tables. Run what follows it as a text of its own.");
    EXPECT_EQ(session->LookupValue("COUNT(*)", "T", ""), Variant(Int32{0}));
}

TEST(EmbeddedBatch, KeepsTheRowsFromBeforeARefusal) {
    auto session = test_support::EmptyDatabase();
    ASSERT_TRUE(session->ExecuteSql("CREATE TABLE T (a int NOT NULL PRIMARY KEY) INSERT INTO T VALUES (7)"));
    const std::string text = "SELECT a FROM T INSERT INTO T VALUES (7)";
    const auto value = [&] {
        const auto rows = session->RowsBeforeRefusal();
        return rows && !rows->Eof() ? rows->Fields().Item(Int16{0}).Value() : Variant();
    };
    EXPECT_FALSE(session->OpenSelect(text));
    EXPECT_EQ(value(), Variant(Int32{7}));
    EXPECT_FALSE(session->ExecuteSql("INSERT INTO T VALUES (7)"));
    EXPECT_FALSE(session->RowsBeforeRefusal());
    EXPECT_FALSE(session->ExecuteSql(text));
    EXPECT_EQ(value(), Variant(Int32{7}));
    EXPECT_THROW(session->AdoConnection()->Execute(text), Error);
    EXPECT_EQ(value(), Variant(Int32{7}));
}

TEST(EmbeddedBatch, KeepsFurtherRowsWhereTheyAreAskedFor) {
    auto session = test_support::EmptyDatabase();
    const std::string text = "DECLARE @n int SELECT 1 SET @n = 2 SELECT @n SELECT @n = 3 SELECT @n";
    const auto values = [&] {
        std::vector<Int32> all;
        for (const auto& rows : session->FurtherRows()) all.push_back(To<Int32>(rows->Fields().Item(Int16{0}).Value()));
        return all;
    };
    ASSERT_TRUE(session->OpenSelect(text));
    EXPECT_TRUE(values().empty());
    session->KeepFurtherRows(true);
    ASSERT_TRUE(session->OpenSelect(text));
    EXPECT_EQ(values(), (std::vector<Int32>{2, 3}));
    EXPECT_EQ(To<Int32>(session->Recordset()->Fields().Item(Int16{0}).Value()), 1);
    EXPECT_FALSE(session->ExecuteSql("SELECT 1 SELECT 2 SELECT 1 / 0"));
    EXPECT_EQ(values(), std::vector<Int32>{2});
    ASSERT_TRUE(session->OpenSelect("SELECT 1"));
    EXPECT_TRUE(values().empty());
}

TEST(EmbeddedBatch, RefusesWhatSqliteWouldNotUnderstand) {
    auto session = test_support::EmptyDatabase();
    ASSERT_TRUE(session->ExecuteSql("CREATE TABLE T (a int)"));
    const struct {
        const char* text;
        Int32 number;
    } kTexts[] = {
        {"SELECT 'x' FROM T HAVING 1 = 1", 40000},
        {"SELECT 'x' FROM T ORDER BY COUNT(*)", 40000},
        {"SELECT a FROM T ORDER BY COUNT(*)", 8120},
        {"SELECT TOP (CASE 1 WHEN 2 THEN 1 END) a FROM T", 1060},
        {"CREATE TABLE U (a int, CHECK (a > (SELECT COUNT(*) FROM T)))", 1046},
        {"CREATE TABLE U (d datetime, CHECK (d < getdate()))", 40000},
    };
    for (const auto& [text, number] : kTexts) {
        EXPECT_FALSE(session->OpenSelect(text)) << text;
        EXPECT_EQ(session->LastErrorNumber(), number) << text << ": " << session->LastErrorText();
    }
}

}  // namespace
}  // namespace LumoConnection
