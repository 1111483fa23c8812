#include <gtest/gtest.h>

#include <LumoConnection/embedded/database.h>

namespace LumoConnection::Embedded {
namespace {

class Plans : public testing::Test {
  protected:
    Plans() : database_({":memory:", "tester", true, 1}) {
        Run("CREATE TABLE T (ID int NOT NULL PRIMARY KEY, Name nvarchar(5) NULL, Tag datetime NULL, Menge tinyint NULL)");
        Run("INSERT INTO T VALUES (1, 'a', '01.02.2010', 1), (2, 'b', '02.02.2010', 2)");
    }

    Outcome Run(std::string_view text) { return database_.Run(text); }
    std::string First(std::string_view text) {
        const Outcome outcome = Run(text);
        if (outcome.refusal) return "refused " + std::to_string(outcome.refusal->Number());
        if (!outcome.rows || outcome.rows->Eof()) return "no row";
        const Variant value = outcome.rows->Fields().Item(Int16{0}).Value();
        return value.IsNull() ? "NULL" : To<Text>(value);
    }
    // True if the text found a plan.
    bool Shares(std::string_view text) {
        const auto before = database_.Plans().Hits();
        Run(text);
        return database_.Plans().Hits() > before;
    }

    Database database_;
};

TEST_F(Plans, AreSharedByTextsThatDifferInValues) {
    EXPECT_FALSE(Shares("SELECT Name FROM T WHERE ID = 1"));
    EXPECT_TRUE(Shares("SELECT Name FROM T WHERE ID = 2"));
    EXPECT_EQ(First("SELECT Name FROM T WHERE ID = 1"), "a");
    EXPECT_EQ(First("SELECT Name FROM T WHERE ID = 2"), "b");
    EXPECT_EQ(First("SELECT Name FROM T WHERE ID = -2"), "no row");
}

TEST_F(Plans, ConvertEachValueAnew) {
    EXPECT_EQ(First("SELECT ID FROM T WHERE Tag = '01.02.2010'"), "1");
    EXPECT_EQ(First("SELECT ID FROM T WHERE Tag = '2.2.2010'"), "2");
    EXPECT_EQ(First("SELECT ID FROM T WHERE Tag = 'gestern'"), "refused 241");
    EXPECT_EQ(First("SELECT ID FROM T WHERE Tag = '01.02.2010'"), "1");
    EXPECT_EQ(First("INSERT INTO T (ID, Name) VALUES (3, 'kurz') SELECT 'ok'"), "ok");
    EXPECT_EQ(First("INSERT INTO T (ID, Name) VALUES (4, 'zu lang') SELECT 'ok'"), "refused 8152");
    EXPECT_EQ(First("UPDATE T SET Menge = 255 WHERE ID = 1 SELECT 'ok'"), "ok");
    EXPECT_EQ(First("UPDATE T SET Menge = 256 WHERE ID = 1 SELECT 'ok'"), "refused 220");
}

TEST_F(Plans, TellValuesApartThatBelongToTheMeaning) {
    EXPECT_EQ(First("SELECT CONVERT(varchar(20), Tag, 104) FROM T WHERE ID = 1"), "01.02.2010");
    EXPECT_EQ(First("SELECT CONVERT(varchar(20), Tag, 112) FROM T WHERE ID = 1"), "20100201");
    EXPECT_EQ(First("SELECT CONVERT(varchar(4), Tag, 112) FROM T WHERE ID = 1"), "2010");
    EXPECT_EQ(First("SELECT Name, ID FROM T ORDER BY 1 DESC"), "b");
    EXPECT_EQ(First("SELECT Name, -ID FROM T ORDER BY 2 DESC"), "a");
    EXPECT_EQ(First("SELECT Name, -ID FROM T ORDER BY 1 DESC"), "b");
    EXPECT_EQ(First("SELECT Name, ID FROM T ORDER BY 7"), "refused 108");
    EXPECT_EQ(First("SELECT ID + 1 FROM T GROUP BY ID + 1 ORDER BY 1"), "2");
    EXPECT_EQ(First("SELECT ID + 1 FROM T GROUP BY ID + 2 ORDER BY 1"), "refused 8120");
    EXPECT_EQ(First("SELECT ID + 2 FROM T GROUP BY ID + 2 ORDER BY 1"), "3");
}

TEST_F(Plans, TakeTopAsAValue) {
    const auto count = [&](const char* text) { return Run(text).rows->RowCount(); };
    EXPECT_EQ(count("SELECT TOP 1 ID FROM T"), 1u);
    EXPECT_EQ(count("SELECT TOP 2 ID FROM T"), 2u);
    EXPECT_EQ(count("SELECT TOP 0 ID FROM T"), 0u);
}

TEST_F(Plans, AreForgottenWhenTheTablesChange) {
    EXPECT_EQ(First("SELECT COUNT(*) FROM T"), "2");
    Run("DROP TABLE T");
    EXPECT_EQ(First("SELECT COUNT(*) FROM T"), "refused 208");
    Run("CREATE TABLE T (ID nvarchar(3) NULL)");
    EXPECT_EQ(First("SELECT COUNT(*) FROM T"), "0");
    EXPECT_EQ(First("INSERT INTO T (ID) VALUES (5) SELECT ID + 'x' FROM T"), "5x");
}

TEST_F(Plans, AreBounded) {
    for (std::size_t i = 0; i < PlanStore::kMostPlans + 50; ++i) {
        const std::string text = "SELECT ID" + std::string(i + 1, ' ') + "FROM T WHERE ID = 1";
        ASSERT_EQ(First(text), "1");
    }
    EXPECT_EQ(database_.Plans().Size(), PlanStore::kMostPlans);
    EXPECT_FALSE(Shares("SELECT Name FROM T"));
    EXPECT_TRUE(Shares("SELECT Name FROM T"));
}

TEST_F(Plans, OfARefusedTextAreNotKept) {
    EXPECT_EQ(First("SELECT Nix FROM T"), "refused 207");
    EXPECT_FALSE(Shares("SELECT Nix FROM T"));
}

}  // namespace
}  // namespace LumoConnection::Embedded
