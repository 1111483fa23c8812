#include "frontend/console/sql_input.h"

#include <gtest/gtest.h>

namespace frontend {
namespace {

TEST(SqlInput, EndsAtASemicolonOrALineGo) {
    SqlInput input;
    EXPECT_FALSE(input.Add("SELECT 1"));
    EXPECT_FALSE(input.Add("SELECT 2 -- go;"));
    EXPECT_TRUE(input.Add(" go "));
    EXPECT_EQ(input.Text(), "SELECT 1\nSELECT 2 -- go;");
    EXPECT_FALSE(input.FitsOneLine());
    input.Clear();
    EXPECT_TRUE(input.IsEmpty());
    EXPECT_TRUE(input.Add("SELECT 1; -- said"));
    EXPECT_TRUE(SqlInput().Add("SELECT 1 ; \r"));
    EXPECT_FALSE(SqlInput().Add("SELECT 1; SELECT 2"));
}

TEST(SqlInput, QuotesAndCommentsDoNotEndIt) {
    SqlInput input;
    for (const char* line : {"SELECT 'a;", "GO", "it''s;", "', [b;", "c]]d;", "] /* e;", "/* nested */ ;", "GO"}) {
        EXPECT_FALSE(input.Add(line)) << line;
    }
    EXPECT_TRUE(input.Add("*/;"));
}

TEST(SqlInput, RecordsAreAskedForAtTheEnd) {
    SqlInput input;
    EXPECT_TRUE(input.Add("SELECT 1 \\G"));
    EXPECT_EQ(input.Text(), "SELECT 1 ");
    EXPECT_TRUE(input.WantsRecords());
    SqlInput quoted;
    EXPECT_FALSE(quoted.Add("SELECT '\\G"));
    EXPECT_TRUE(quoted.Add("';"));
    EXPECT_FALSE(quoted.WantsRecords());
}

TEST(SqlInput, EmptyLinesInFrontAreNoText) {
    SqlInput input;
    EXPECT_FALSE(input.Add("  "));
    EXPECT_TRUE(input.IsEmpty());
}

TEST(BeginsStatement, InAnyCapitals) {
    EXPECT_TRUE(BeginsStatement("Select"));
    EXPECT_FALSE(BeginsStatement("seminars"));
}

}  // namespace
}  // namespace frontend
